// SPDX-License-Identifier: MIT
#include "foundation/entry_point.h"
