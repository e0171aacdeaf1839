// SPDX-License-Identifier: MIT
// platform/sqlite/sql: listings of one table, read straight from it.
#pragma once

#include "platform/sqlite/sql/plain_statement.h"
#include "platform/sqlite/sql/row_output.h"
#include "platform/sqlite/table/database.h"

namespace lexmill::platform::sqlite {

/// Prints a listing. To be called inside a Statement.
/// @return false, and nothing is printed, if there is no such table or column
[[nodiscard]] bool PrintListing(Database& database, const PlainListing& listing, RowOutput& rows);

}  // namespace lexmill::platform::sqlite
