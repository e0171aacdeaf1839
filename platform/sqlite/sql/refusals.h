// SPDX-License-Identifier: MIT
// platform/sqlite/sql: what the shell of the real program does and this one doesn't.
#pragma once

#include <string_view>

#include "platform/sqlite/table/database.h"

namespace lexmill::platform::sqlite {

/// Refuses a statement that neither a run nor a look into a database needs.
/// @param statement  from its first token to its last
/// @throws DatabaseError  such as `DROP is not supported`
void CheckSupported(std::string_view statement);

/// Why rows of `table` can be read only; empty if they can be written. Its triggers wouldn't run,
/// and its keys wouldn't be kept unique.
[[nodiscard]] std::string_view WhyReadOnly(Database& database, const Table& table);

/// Whether a key of `table` has to be unique, or is the row's number.
[[nodiscard]] bool HasUniqueKey(const Table& table);

inline constexpr std::string_view kOnlyPlainInsert =
    "only INSERT INTO table VALUES ('text',...) is supported";
inline constexpr std::string_view kOnlyPlainUpdate =
    "only UPDATE table SET column='text' WHERE column='text' is supported";
inline constexpr std::string_view kNoUniqueKey = "PRIMARY KEY and UNIQUE are not supported";

}  // namespace lexmill::platform::sqlite
