// SPDX-License-Identifier: MIT
#include "platform/sqlite/table/index_filler.h"

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/table/table_cursor.h"
#include "platform/sqlite/tree/tree_builder.h"
#include "platform/sqlite/tree/tree_cursor.h"
#include "platform/sqlite/tree/tree_editor.h"

namespace lexmill::platform::sqlite {

void PutIndexKey(std::string& key, const Index& index, const ValueOf& value, RowId rowId) {
  key.clear();
  for (const std::size_t column : index.columns) {
    AppendIndexText(key, value(column));
  }
  AppendRowKey(key, rowId);
}

void CollectEntries(Pager& pager, const Table& table, const Index& index, KeySorter& entries) {
  std::string key;
  TableCursor rows(pager, table.rootPage);
  const ValueOf value = [&rows](std::size_t column) { return rows.Record().Column(column); };
  while (rows.Next()) {
    PutIndexKey(key, index, value, rows.CurrentRowId());
    entries.Add({key});
  }
}

void AddEntries(Pager& pager, const Index& index, KeySorter& entries) {
  entries.Sort();
  std::string_view entry;
  // Entries come in order, so an empty index is built from left to right; into another one they go
  // one by one, still in order, so that neighbours meet the same pages.
  if (TreeCursor(pager, index.rootPage).First()) {
    TreeEditor editor(pager, index.rootPage);
    while (entries.Next(entry)) {
      editor.Put(entry, {});
    }
    return;
  }
  TreeBuilder builder = TreeBuilder::Appending(pager, index.rootPage);
  while (entries.Next(entry)) {
    builder.Append(entry, {});
  }
  builder.Finish();
}

void CheckIndexesKnown(const Table& table) {
  for (const Index& index : table.indexes) {
    if (!index.isSearchable) {
      throw DatabaseError("index " + index.name + " is not on text columns: table " + table.name +
                          " can only be read");
    }
  }
}

}  // namespace lexmill::platform::sqlite
