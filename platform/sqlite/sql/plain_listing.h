// SPDX-License-Identifier: MIT
// platform/sqlite/sql: Listings of one table, read straight from it.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "platform/sqlite/sql/plain_statement.h"
#include "platform/sqlite/sql/row_output.h"
#include "platform/sqlite/table/database.h"

namespace lexmill::platform::sqlite {

/// The position of a column that holds what is stored for it; none if `table` has no such column or
/// if it is the row's number. Case does not count.
[[nodiscard]] std::optional<std::size_t> FindColumn(const Table& table, std::string_view name);

/// Prints a listing. To be called inside a Statement.
/// @return false, and nothing is printed, if there is no such table or column
[[nodiscard]] bool PrintListing(Database& database, const PlainListing& listing, RowOutput& rows);

}  // namespace lexmill::platform::sqlite
