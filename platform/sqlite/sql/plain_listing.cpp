// SPDX-License-Identifier: MIT
#include "platform/sqlite/sql/plain_listing.h"

#include <string>
#include <vector>

#include "platform/sqlite/table/table_cursor.h"

namespace lexmill::platform::sqlite {

bool PrintListing(Database& database, const PlainListing& listing, RowOutput& rows) {
  const Table* table = database.FindTable(listing.table);
  if (table == nullptr) {
    return false;
  }
  std::vector<std::size_t> columns;
  for (const std::string_view name : listing.columns) {
    const std::optional<std::size_t> column = table->FindColumn(name);
    if (!column) {
      return false;
    }
    columns.push_back(*column);
  }
  const std::vector<std::string> names(listing.columns.begin(), listing.columns.end());
  std::vector<Value> values(columns.size());
  for (TableCursor cursor(database, *table); cursor.Next();) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
      values[i] = cursor.Column(columns[i]);
    }
    rows.Print(names, values);
  }
  return true;
}

}  // namespace lexmill::platform::sqlite
