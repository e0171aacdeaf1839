// SPDX-License-Identifier: MIT
#include "platform/numbers.h"
