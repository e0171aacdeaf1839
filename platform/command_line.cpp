// SPDX-License-Identifier: MIT
#include "platform/command_line.h"
