// SPDX-License-Identifier: MIT
// platform/sqlite/table: what the statements of a schema mean.
#pragma once

#include <vector>

#include "platform/sqlite/table/table.h"

namespace lexmill::platform::sqlite {

/// Describes a table by its statement and those of its indexes, which the SQL library reads.
/// @param objects          among which the table's indexes are looked for. One that the table's own
///   statement asks for, by UNIQUE or PRIMARY KEY, and that isn't there has root page 0; one that
///   isn't understood has no columns
/// @param isPresentFormat  whether the file's index entries hold text as text
/// @throws DatabaseError with the library's text if the table's statement isn't understood
[[nodiscard]] Table DescribeTable(const CatalogObject& table,
                                  const std::vector<CatalogObject>& objects, bool isPresentFormat);

/// Whether the entries of an index can be made from its rows: it is in the file and understood, and
/// all its columns are text.
[[nodiscard]] bool CanBeKept(const Table& table, const Index& index);

}  // namespace lexmill::platform::sqlite
