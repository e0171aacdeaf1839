// SPDX-License-Identifier: MIT
#include "platform/process.h"
