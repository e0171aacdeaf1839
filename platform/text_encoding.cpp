// SPDX-License-Identifier: MIT
#include "platform/text_encoding.h"
