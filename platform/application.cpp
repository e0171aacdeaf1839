// SPDX-License-Identifier: MIT
#include "platform/application.h"
