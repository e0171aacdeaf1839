// SPDX-License-Identifier: MIT
#include "platform/profile_file.h"
