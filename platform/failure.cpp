// SPDX-License-Identifier: MIT
#include "platform/failure.h"
