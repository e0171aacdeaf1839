// SPDX-License-Identifier: MIT
#include "platform/ansi_text.h"
