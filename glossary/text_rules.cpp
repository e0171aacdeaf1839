// SPDX-License-Identifier: MIT
#include "glossary/text_rules.h"
