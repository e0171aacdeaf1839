// SPDX-License-Identifier: MIT
#include "platform/sqlite/schema_reader.h"

#include <sqlite3.h>

#include <algorithm>
#include <cctype>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>

#include "platform/sqlite/database_error.h"

namespace lexmill::platform::sqlite {
namespace {

/// A database in memory that knows nothing but the statements in question.
class Scratch {
 public:
  Scratch() {
    sqlite3* connection = nullptr;
    const int result = sqlite3_open(":memory:", &connection);
    connection_.reset(connection);
    if (result != SQLITE_OK) {
      throw DatabaseError("out of memory");
    }
  }

  /// Carries out a CREATE statement of a file, which may be hostile: nothing that reads or
  /// computes.
  [[nodiscard]] bool Create(const std::string& sql) {
    sqlite3_set_authorizer(connection_.get(), &Scratch::Authorise, nullptr);
    const Prepared statement = Prepare(sql);
    const bool isDone = statement && sqlite3_step(statement.get()) == SQLITE_DONE;
    sqlite3_set_authorizer(connection_.get(), nullptr, nullptr);
    return isDone;
  }

  [[nodiscard]] std::string Message() const { return sqlite3_errmsg(connection_.get()); }

  using Row = std::function<std::string(int column)>;
  void ForEachRow(const std::string& query, std::string_view argument,
                  const std::function<void(const Row&)>& take) {
    const Prepared statement = Prepare(query);
    sqlite3_bind_text(statement.get(), 1, argument.data(), static_cast<int>(argument.size()),
                      SQLITE_TRANSIENT);
    while (sqlite3_step(statement.get()) == SQLITE_ROW) {
      take([&statement](int column) {
        const unsigned char* text = sqlite3_column_text(statement.get(), column);
        const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement.get(), column));
        return std::string(text, text + size);
      });
    }
  }

 private:
  using Prepared = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

  static int Authorise(void*, int action, const char*, const char*, const char*, const char*) {
    switch (action) {
      case SQLITE_SELECT:
      case SQLITE_ATTACH:
      case SQLITE_PRAGMA:
      case SQLITE_CREATE_VTABLE:
        return SQLITE_DENY;
      default:
        return SQLITE_OK;
    }
  }

  Prepared Prepare(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(connection_.get(), sql.c_str(), static_cast<int>(sql.size() + 1), &statement,
                       nullptr);
    return {statement, &sqlite3_finalize};
  }

  std::unique_ptr<sqlite3, decltype(&sqlite3_close)> connection_{nullptr, &sqlite3_close};
};

bool IsTextType(std::string type) {
  std::ranges::transform(type, type.begin(),
                         [](unsigned char letter) { return std::tolower(letter); });
  return std::ranges::any_of(std::initializer_list<const char*>{"char", "clob", "blob", "text"},
                             [&type](const char* word) { return type.find(word) != type.npos; });
}

void ReadColumns(Scratch& scratch, Table& table) {
  std::vector<std::size_t> keyColumns;
  scratch.ForEachRow(
      "SELECT name,type,\"notnull\",pk FROM pragma_table_info"
      "((SELECT name FROM sqlite_master WHERE type='table')) WHERE ?1 IS NOT NULL",
      table.name, [&](const Scratch::Row& row) {
        if (row(3) != "0") {
          keyColumns.push_back(table.columns.size());
        }
        table.columns.push_back({row(0), row(1), IsTextType(row(1)), row(2) != "0"});
      });
  if (keyColumns.size() == 1 &&
      SameName(table.columns[keyColumns.front()].declaredType, "INTEGER")) {
    table.rowIdColumn = keyColumns.front();
  }
}

/// The columns of an index by its name in the scratch database; none if one isn't a plain column.
std::vector<std::size_t> ReadIndexColumns(Scratch& scratch, const std::string& name) {
  std::vector<std::size_t> columns;
  bool isPlain = true;
  scratch.ForEachRow("SELECT cid FROM pragma_index_info(?1)", name, [&](const Scratch::Row& row) {
    const int column = std::stoi(row(0));
    isPlain = isPlain && column >= 0;
    columns.push_back(static_cast<std::size_t>(std::max(column, 0)));
  });
  return isPlain ? columns : std::vector<std::size_t>{};
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

void ReadIndexes(Scratch& scratch, const std::vector<CatalogObject>& objects, Table& table) {
  scratch.ForEachRow(
      "SELECT name,\"unique\",origin FROM pragma_index_list"
      "((SELECT name FROM sqlite_master WHERE type='table')) WHERE ?1 IS NOT NULL ORDER BY seq "
      "DESC",
      table.name, [&](const Scratch::Row& row) {
        Index index;
        index.name = row(2) == "c" ? row(0) : OwnIndexName(table.name, row(0));
        index.columns = ReadIndexColumns(scratch, row(0));
        index.isUnique = row(1) != "0";
        const CatalogObject* object = FindIndex(objects, index.name);
        index.rootPage = object == nullptr ? 0 : object->rootPage;
        table.indexes.push_back(index);
      });
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

bool IsSearchable(const Table& table, const Index& index) {
  return !index.columns.empty() && std::ranges::all_of(index.columns, [&table](std::size_t column) {
    return table.columns[column].isText;
  });
}

void CreateTable(Scratch& scratch, const CatalogObject& table) {
  if (!table.sql || !scratch.Create(*table.sql)) {
    throw DatabaseError(scratch.Message());
  }
}

}  // namespace

Table DescribeTable(const CatalogObject& object, const std::vector<CatalogObject>& objects,
                    bool isPresentFormat) {
  Scratch scratch;
  CreateTable(scratch, object);
  for (const CatalogObject& index : objects) {
    if (index.type == "index" && index.sql && SameName(index.tableName, object.name)) {
      std::ignore = scratch.Create(*index.sql);
    }
  }
  Table table;
  table.name = object.name;
  table.sql = *object.sql;
  table.rootPage = object.rootPage;
  ReadColumns(scratch, table);
  ReadIndexes(scratch, objects, table);
  AddUnknownIndexes(objects, table);
  for (Index& index : table.indexes) {
    index.isSearchable = isPresentFormat && IsSearchable(table, index);
  }
  return table;
}

void CheckIndex(const CatalogObject& table, const CatalogObject& index) {
  Scratch scratch;
  CreateTable(scratch, table);
  if (scratch.Create(*index.sql)) {
    return;
  }
  constexpr std::string_view kNoColumn = "no such column: ";
  const std::string message = scratch.Message();
  if (message.starts_with(kNoColumn)) {
    throw DatabaseError("table " + table.name + " has no column named " +
                        message.substr(kNoColumn.size()));
  }
  throw DatabaseError(message);
}

}  // namespace lexmill::platform::sqlite
