// SPDX-License-Identifier: MIT
#include "platform/clock.h"
