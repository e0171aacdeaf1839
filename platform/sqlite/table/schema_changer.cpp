// SPDX-License-Identifier: MIT
#include "platform/sqlite/table/schema_changer.h"

#include <algorithm>
#include <string>
#include <vector>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/file/free_list.h"
#include "platform/sqlite/table/index_filler.h"
#include "platform/sqlite/table/schema_reader.h"
#include "platform/sqlite/tree/tree_removal.h"

namespace lexmill::platform::sqlite {
namespace {

CatalogObject MakeObject(std::string_view type, std::string_view name, std::string_view table,
                         std::string_view sql) {
  CatalogObject object;
  object.type = type;
  object.name = name;
  object.tableName = table;
  object.sql = sql;
  return object;
}

DatabaseError NoSuch(std::string_view type, std::string_view name) {
  return DatabaseError("no such " + std::string(type) + ": " + std::string(name));
}

}  // namespace

void SchemaChanger::CreateTable(std::string_view name, std::string_view sql) {
  CheckNameIsFree("table", name);
  CatalogObject object = MakeObject("table", name, name, sql);
  const Table table = DescribeTable(object, {}, true);
  object.rootPage = NewTree();
  catalog_.Add(object);
  for (const Index& index : table.indexes) {
    CatalogObject own = MakeObject("index", index.name, name, {});
    own.sql.reset();
    own.rootPage = NewTree();
    catalog_.Add(own);
  }
}

void SchemaChanger::CreateIndex(std::string_view name, std::string_view table,
                                std::string_view sql) {
  CheckNameIsFree("index", name);
  const CatalogObject* indexed = catalog_.Find("table", table);
  if (indexed == nullptr) {
    throw NoSuch("table", table);
  }
  CatalogObject object = MakeObject("index", name, indexed->name, sql);
  CheckIndex(*indexed, object);
  object.rootPage = NewTree();
  catalog_.Add(object);
  const Table& described = *catalog_.FindTable(object.tableName);
  CheckIndexesKnown(described);
  const auto index = std::ranges::find_if(
      described.indexes, [&object](const Index& one) { return SameName(one.name, object.name); });
  KeySorter entries(pager_.Path(), kIndexBuffer);
  CollectEntries(pager_, described, *index, entries);
  AddEntries(pager_, *index, entries);
}

void SchemaChanger::CreateOther(std::string_view type, std::string_view name,
                                std::string_view table, std::string_view sql) {
  CheckNameIsFree(type, name);
  catalog_.Add(MakeObject(type, name, table, sql));
}

void SchemaChanger::DropTable(std::string_view name) {
  const CatalogObject* table = catalog_.Find("table", name);
  if (table == nullptr) {
    throw NoSuch("table", name);
  }
  // A copy: the catalog reads itself anew with every change.
  std::vector<CatalogObject> gone;
  std::ranges::copy_if(catalog_.Objects(), std::back_inserter(gone),
                       [table](const CatalogObject& object) {
                         return SameName(object.tableName, table->name) && object.type != "view";
                       });
  std::ranges::for_each(gone, [this](const CatalogObject& object) { Remove(object); });
}

void SchemaChanger::Drop(std::string_view type, std::string_view name) {
  const CatalogObject* object = catalog_.Find(type, name);
  if (object == nullptr) {
    throw NoSuch(type, name);
  }
  Remove(CatalogObject(*object));
}

void SchemaChanger::CheckNameIsFree(std::string_view type, std::string_view name) {
  const bool isIndex = type == "index";
  if (catalog_.Find(type, name) != nullptr) {
    throw DatabaseError(std::string(type) + " " + std::string(name) + " already exists");
  }
  if (type == "trigger") {
    return;
  }
  for (const std::string_view other : {"table", "view", "index"}) {
    if (other == type || catalog_.Find(other, name) == nullptr) {
      continue;
    }
    if (isIndex || other == "index") {
      throw DatabaseError("there is already " + std::string(other == "index" ? "an " : "a ") +
                          std::string(other) + " named " + std::string(name));
    }
    throw DatabaseError("table " + std::string(name) + " already exists");
  }
}

PageNumber SchemaChanger::NewTree() {
  const PageNumber root = AllocatePage(pager_);
  PutEmptyTree(pager_.Edit(root).bytes, pager_.Order());
  return root;
}

void SchemaChanger::Remove(const CatalogObject& object) {
  if (object.type == "table" || object.type == "index") {
    FreeTreeBelow(pager_, object.rootPage, Overflow::Freed);
    FreePage(pager_, object.rootPage);
  }
  catalog_.Remove(object.rowId);
}

}  // namespace lexmill::platform::sqlite
