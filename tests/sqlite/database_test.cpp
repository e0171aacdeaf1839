// SPDX-License-Identifier: MIT
#include "platform/sqlite/database.h"

#include <gtest/gtest.h>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/table_cursor.h"
