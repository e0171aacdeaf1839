// SPDX-License-Identifier: MIT
#include "platform/file_system.h"
