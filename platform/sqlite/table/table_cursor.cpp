// SPDX-License-Identifier: MIT
#include "platform/sqlite/table/table_cursor.h"

#include "platform/sqlite/table/database.h"
#include "platform/sqlite/table/storage.h"

namespace lexmill::platform::sqlite {

TableCursor::TableCursor(Database& database, const Table& table)
    : storage_(*database.storage_), rows_(storage_.Pages(), table.rootPage) {}

bool TableCursor::Next() {
  storage_.Settle();
  return rows_.Next();
}

bool TableCursor::Seek(RowId rowId) {
  storage_.Settle();
  return rows_.Seek(rowId);
}

IndexCursor::IndexCursor(Database& database, const Index& index)
    : storage_(*database.storage_), entries_(storage_.Pages(), index.rootPage) {}

std::optional<RowId> IndexCursor::Next() {
  storage_.Settle();
  return entries_.Next();
}

}  // namespace lexmill::platform::sqlite
