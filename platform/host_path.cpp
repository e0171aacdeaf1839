// SPDX-License-Identifier: MIT
#include "platform/host_path.h"
