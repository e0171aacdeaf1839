// SPDX-License-Identifier: MIT
#include <algorithm>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/file/free_list.h"
#include "platform/sqlite/table/database.h"
#include "platform/sqlite/table/index_filler.h"

namespace lexmill::platform::sqlite {

void Database::CreateTable(std::string_view name, std::string_view sql) {
  AddObject("table", name, name, sql);
}

void Database::CreateIndex(std::string_view name, std::string_view table, std::string_view sql) {
  const Table* indexed = FindTable(table);
  if (indexed == nullptr) {
    throw DatabaseError("no such table: " + std::string(table));
  }
  AddObject("index", name, std::string(indexed->name), sql);
  indexed = FindTable(table);
  CheckIndexesKnown(*indexed);
  const auto index = std::ranges::find_if(
      indexed->indexes, [name](const Index& one) { return SameName(one.name, name); });
  KeySorter entries(file_.Pages().Path(), kIndexBuffer);
  CollectEntries(file_.Pages(), *indexed, *index, entries);
  AddEntries(file_.Pages(), *index, entries);
}

/// Adds a row to the master table, with an empty tree for the object.
void Database::AddObject(std::string_view type, std::string_view name, std::string_view table,
                         std::string_view sql) {
  Settle();
  // libsqlite3 has looked for the name, but only among the objects that it understands.
  const auto isTaken = [name](const CatalogObject& object) { return SameName(object.name, name); };
  if (std::ranges::any_of(Objects(), isTaken)) {
    throw DatabaseError(std::string(type) + " " + std::string(name) + " already exists");
  }
  Pager& pages = file_.Pages();
  CatalogObject object;
  object.type = type;
  object.name = name;
  object.tableName = table;
  object.sql = sql;
  object.rootPage = AllocatePage(pages);
  PutEmptyTree(pages.Edit(object.rootPage).bytes, pages.Order());
  catalog_.Add(object);
}

}  // namespace lexmill::platform::sqlite
