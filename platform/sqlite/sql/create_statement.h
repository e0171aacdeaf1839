// SPDX-License-Identifier: MIT
// platform/sqlite/sql: CREATE TABLE and CREATE INDEX, understood.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/sqlite/table/table.h"

namespace lexmill::platform::sqlite {

/// What a CREATE statement makes, with names out of their quotes.
struct NewObject {
  std::string type;  ///< "table" or "index"
  std::string name;
  std::string table;  ///< that an index belongs to
};

/// Lets libsqlite3 read a statement against a likeness of the database: all its objects, but no
/// rows.
/// @param objects  of the database
/// @throws DatabaseError if the statement is wrong, its name taken, or what it names isn't there
[[nodiscard]] NewObject UnderstandCreate(const std::vector<CatalogObject>& objects,
                                         std::string_view sql);

}  // namespace lexmill::platform::sqlite
