// SPDX-License-Identifier: MIT
// platform/sqlite/sql: The join of a run, in one pass over each table.
#pragma once

#include "platform/sqlite/sql/plain_statement.h"
#include "platform/sqlite/sql/row_output.h"
#include "platform/sqlite/table/database.h"

namespace lexmill::platform::sqlite {

/// Prints the join of tables `R` and `S`: for each row of `R`, in order, the rows of `S` with its
/// key, in order; of equal rows the first. To be called inside a Statement.
/// @return false, and nothing is printed, if the tables aren't there, their columns don't suit, or
///   two rows of `S` differ in nothing but their keys, which those of a run never do
/// @throws DatabaseError kRowTooLong for a row of more than 1,048,562 bytes
[[nodiscard]] bool PrintDictionaryJoin(Database& database, DictionaryJoin join, RowOutput& rows);

}  // namespace lexmill::platform::sqlite
