// SPDX-License-Identifier: MIT
#include "run/shared/file_extension.h"
