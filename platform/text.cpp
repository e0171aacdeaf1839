// SPDX-License-Identifier: MIT
#include "platform/text.h"
