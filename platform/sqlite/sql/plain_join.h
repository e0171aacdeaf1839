// SPDX-License-Identifier: MIT
// platform/sqlite/sql: A join of two tables by one key, in one pass over each of them.
#pragma once

#include "platform/sqlite/sql/plain_statement.h"
#include "platform/sqlite/sql/row_output.h"
#include "platform/sqlite/table/database.h"

namespace lexmill::platform::sqlite {

/// Prints a join: for each row of the outer table, in order, the rows of the inner one with its
/// key, in order; of equal rows of the result the first. To be called inside a Statement.
/// @return false, and nothing is printed, if the statement is one for libsqlite3 after all: a table
///   or a column isn't there or no text, a side gives no column, or two rows of the inner table
///   differ in nothing that the join prints but have different keys
/// @throws DatabaseError kRowTooLong for a row of more than 1,048,562 bytes
[[nodiscard]] bool PrintJoin(Database& database, const PlainJoin& join, RowOutput& rows);

}  // namespace lexmill::platform::sqlite
