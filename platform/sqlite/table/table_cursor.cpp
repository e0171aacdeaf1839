// SPDX-License-Identifier: MIT
#include "platform/sqlite/table/table_cursor.h"

#include "platform/sqlite/table/database.h"

namespace lexmill::platform::sqlite {

TableCursor::TableCursor(Database& database, const Table& table)
    : database_(database), rows_(database.file_.Pages(), table.rootPage) {}

bool TableCursor::Next() {
  database_.Settle();
  return rows_.Next();
}

bool TableCursor::Seek(RowId rowId) {
  database_.Settle();
  return rows_.Seek(rowId);
}

IndexCursor::IndexCursor(Database& database, const Index& index)
    : database_(database), entries_(database.file_.Pages(), index.rootPage) {}

std::optional<RowId> IndexCursor::Next() {
  database_.Settle();
  return entries_.Next();
}

}  // namespace lexmill::platform::sqlite
