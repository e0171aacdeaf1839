// SPDX-License-Identifier: MIT
// platform/sqlite/table: what a database file says of its objects.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sqlite/file/page.h"
#include "platform/sqlite/tree/record.h"

namespace lexmill::platform::sqlite {

/// A row of the master table.
struct CatalogObject {
  std::string type;  ///< "table", "index", "view", "trigger"
  std::string name;
  std::string tableName;
  PageNumber rootPage = 0;         ///< 0 for views and triggers
  std::optional<std::string> sql;  ///< as typed; none for the index of a UNIQUE or PRIMARY KEY

  [[nodiscard]] bool operator==(const CatalogObject&) const = default;
};

struct Column {
  std::string name;
  std::string declaredType;  ///< as typed, may be empty
  bool isText = false;       ///< compares as text; other columns compare as numbers
};

struct Index {
  std::string name;
  PageNumber rootPage = 0;           ///< 0 if the table asks for it and the file doesn't have it
  std::vector<std::size_t> columns;  ///< positions in the table, in the index's order
  bool isUnique = false;
  /// All columns are text and the file is of the present format, so that equal texts are together
  /// and can be searched. The table of an index that isn't can be read but not changed.
  bool isSearchable = false;
};

struct Table {
  std::string name;
  PageNumber rootPage = 0;
  std::vector<Column> columns;
  std::vector<Index> indexes;
  /// The INTEGER PRIMARY KEY: stored as NULL, its value is the row's number.
  std::optional<std::size_t> rowIdColumn;

  /// The position of a column that holds what is stored for it; none if the table has no such
  /// column or if it is the row's number. Case does not count.
  [[nodiscard]] std::optional<std::size_t> FindColumn(std::string_view column) const;
  /// A searchable index whose only column is `column`; null if there is none.
  [[nodiscard]] const Index* IndexOn(std::size_t column) const;
};

/// Whether two names of objects are the same: ASCII letters without regard to case.
[[nodiscard]] bool SameName(std::string_view left, std::string_view right);

}  // namespace lexmill::platform::sqlite
