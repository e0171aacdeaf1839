// SPDX-License-Identifier: MIT
// How a table becomes known to libsqlite3: it asks for the columns by Connect, and gets them as a
// CREATE TABLE with the types as declared, since those decide how values compare. The rest of a
// module, how rows are found and read, is in virtual_table.cpp.
//
// libsqlite3 is C. It gets pointers to its own base structures and hands the same ones back, and no
// exception may pass through it: Guarded makes result codes of them.
#include "platform/sqlite/sql/table_module.h"

#include <memory>
#include <string>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/database_error.h"
#include "platform/sqlite/sql/statement_text.h"
#include "platform/sqlite/sql/virtual_table.h"

namespace lexmill::platform::sqlite {
namespace {

constexpr PageNumber kMasterPage = 2;  // in every file; nothing else refers to it

/// The text of a CREATE TABLE with the columns of `table`.
std::string Declaration(const Table& table) {
  std::string result = "CREATE TABLE x";
  char before = '(';
  for (const Column& column : table.columns) {
    result.append(1, before).append(QuoteName(column.name));
    result.append(" ").append(column.declaredType);
    before = ',';
  }
  return result.append(")");
}

/// Makes a table known. `words` are the module, the schema and the table's name.
int Connect(sqlite3* connection, void* module, int, const char* const* words, sqlite3_vtab** result,
            char** message) {
  return Guarded(*message, [&] {
    auto& context = *static_cast<TableModule::Context*>(module);
    const std::string_view name = words[2];
    const Table* table = name == kMasterAlias ? &context.master : context.database.FindTable(name);
    if (table == nullptr) {
      throw DatabaseError("no such table: " + std::string(name));
    }
    if (sqlite3_declare_vtab(connection, Declaration(*table).c_str()) != SQLITE_OK) {
      throw DatabaseError(sqlite3_errmsg(connection));
    }
    *result = std::make_unique<VirtualTable>(context, *table).release();
  });
}

int Disconnect(sqlite3_vtab* table) {
  const std::unique_ptr<VirtualTable> owned(&TableOf(table));
  return SQLITE_OK;
}

/// The one table that no row of the master table describes.
Table MasterTable() {
  Table result;
  result.name = kMasterAlias;
  result.rootPage = kMasterPage;
  for (const char* name : {"type", "name", "tbl_name", "rootpage", "sql"}) {
    result.columns.push_back({name, "TEXT", true});
  }
  return result;
}

sqlite3_module MakeModule() {
  sqlite3_module module{};
  module.xCreate = &Connect;
  module.xConnect = &Connect;
  module.xDisconnect = &Disconnect;
  module.xDestroy = &Disconnect;
  AddReading(module);
  return module;
}

}  // namespace

TableModule::TableModule(sqlite3* connection, Database& database)
    : context_{database, MasterTable()} {
  static const sqlite3_module module = MakeModule();
  if (sqlite3_create_module(connection, "lexmill_table", &module, &context_) != SQLITE_OK) {
    throw DatabaseError(sqlite3_errmsg(connection));
  }
}

}  // namespace lexmill::platform::sqlite
