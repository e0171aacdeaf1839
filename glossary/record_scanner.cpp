// SPDX-License-Identifier: MIT
#include "glossary/record_scanner.h"
