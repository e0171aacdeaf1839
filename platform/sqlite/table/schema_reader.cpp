// SPDX-License-Identifier: MIT

// What a statement of the master table means is not parsed here: libsqlite3 reads it, on an empty
// connection of its own, and is asked by PRAGMA what it has understood. A file may come from
// anywhere, so its statements are only declared (Connection::Declare), never run.

#include "platform/sqlite/table/schema_reader.h"

#include <algorithm>
#include <cctype>
#include <initializer_list>
#include <string>
#include <string_view>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/database_error.h"

namespace lexmill::platform::sqlite {
namespace {

/// The rows that a PRAGMA gives of an object.
std::vector<std::vector<std::string>> Ask(Connection& scratch, const std::string& pragma,
                                          std::string_view object) {
  std::vector<std::vector<std::string>> rows;
  auto answer = scratch.Compile("PRAGMA " + pragma + "(" + QuoteName(object) + ")");
  while (answer && answer->Step()) {
    std::vector<std::string>& row = rows.emplace_back();
    for (int i = 0; i < answer->ColumnCount(); ++i) {
      row.emplace_back(answer->Column(i).value_or(""));
    }
  }
  return rows;
}

bool IsTextType(std::string type) {
  std::ranges::transform(type, type.begin(),
                         [](unsigned char letter) { return std::tolower(letter); });
  return std::ranges::any_of(std::initializer_list<const char*>{"char", "clob", "blob", "text"},
                             [&type](const char* word) { return type.find(word) != type.npos; });
}

void ReadColumns(Connection& scratch, Table& table) {
  enum : std::size_t { kName = 1, kType, kKey = 5 };
  std::vector<std::size_t> keyColumns;
  for (const auto& row : Ask(scratch, "table_info", table.name)) {
    if (row[kKey] != "0") {
      keyColumns.push_back(table.columns.size());
    }
    table.columns.push_back({row[kName], row[kType], IsTextType(row[kType])});
  }
  if (table.columns.empty()) {
    throw DatabaseError(kMalformed);
  }
  if (keyColumns.size() == 1 &&
      SameName(table.columns[keyColumns.front()].declaredType, "INTEGER")) {
    table.rowIdColumn = keyColumns.front();
  }
}

/// The columns of an index by the library's name for it; none if one isn't a plain column.
std::vector<std::size_t> ReadIndexColumns(Connection& scratch, const std::string& name) {
  enum : std::size_t { kColumn = 1 };
  std::vector<std::size_t> columns;
  for (const auto& row : Ask(scratch, "index_info", name)) {
    const int column = std::stoi(row[kColumn]);
    if (column < 0) {
      return {};
    }
    columns.push_back(static_cast<std::size_t>(column));
  }
  return columns;
}

/// The name in a file of the index that the library calls `sqlite_autoindex_P_1`.
std::string OwnIndexName(const std::string& table, const std::string& libraryName) {
  return "(" + table + " autoindex " + libraryName.substr(libraryName.rfind('_') + 1) + ")";
}

const CatalogObject* FindIndex(const std::vector<CatalogObject>& objects, std::string_view name) {
  const auto found = std::ranges::find_if(objects, [name](const CatalogObject& object) {
    return object.type == "index" && SameName(object.name, name);
  });
  return found == objects.end() ? nullptr : &*found;
}

void ReadIndexes(Connection& scratch, const std::vector<CatalogObject>& objects, Table& table) {
  enum : std::size_t { kName = 1, kUnique, kOrigin };
  for (const auto& row : Ask(scratch, "index_list", table.name)) {
    Index index;
    index.name = row[kOrigin] == "c" ? row[kName] : OwnIndexName(table.name, row[kName]);
    index.columns = ReadIndexColumns(scratch, row[kName]);
    index.isUnique = row[kUnique] != "0";
    const CatalogObject* object = FindIndex(objects, index.name);
    index.rootPage = object == nullptr ? 0 : object->rootPage;
    table.indexes.push_back(index);
  }
  std::ranges::reverse(table.indexes);  // listed from the newest to the oldest
}

/// Adds the indexes of a table that the library didn't understand.
void AddUnknownIndexes(const std::vector<CatalogObject>& objects, Table& table) {
  for (const CatalogObject& object : objects) {
    const bool isKnown = std::ranges::any_of(
        table.indexes, [&object](const Index& index) { return SameName(index.name, object.name); });
    if (object.type == "index" && SameName(object.tableName, table.name) && !isKnown) {
      Index index;
      index.name = object.name;
      index.rootPage = object.rootPage;
      table.indexes.push_back(index);
    }
  }
}

}  // namespace

Table DescribeTable(const CatalogObject& object, const std::vector<CatalogObject>& objects,
                    bool isPresentFormat) {
  Connection scratch;
  scratch.Declare(object.sql.value_or(""));
  for (const CatalogObject& index : objects) {
    if (index.type == "index" && index.sql && SameName(index.tableName, object.name)) {
      scratch.DeclareIfUnderstood(*index.sql);
    }
  }
  Table table;
  table.name = object.name;
  table.rootPage = object.rootPage;
  ReadColumns(scratch, table);
  ReadIndexes(scratch, objects, table);
  AddUnknownIndexes(objects, table);
  for (Index& index : table.indexes) {
    index.isSearchable = isPresentFormat && CanBeKept(table, index);
  }
  return table;
}

bool CanBeKept(const Table& table, const Index& index) {
  const auto isText = [&table](std::size_t column) { return table.columns[column].isText; };
  return index.rootPage != 0 && !index.columns.empty() &&
         std::ranges::all_of(index.columns, isText);
}

}  // namespace lexmill::platform::sqlite
