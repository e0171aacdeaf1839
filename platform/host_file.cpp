// SPDX-License-Identifier: MIT
#include "platform/host_file.h"
