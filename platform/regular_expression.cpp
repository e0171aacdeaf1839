// SPDX-License-Identifier: MIT
#include "platform/regular_expression.h"
