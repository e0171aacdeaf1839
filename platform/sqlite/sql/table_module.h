// SPDX-License-Identifier: MIT
// platform/sqlite/sql: The tables of a file as virtual tables of libsqlite3.
#pragma once

#include <sqlite3.h>

#include "platform/sqlite/sql/schema_compiler.h"
#include "platform/sqlite/table/database.h"

namespace lexmill::platform::sqlite {

/// The module `lexmill_table` of one connection. `CREATE VIRTUAL TABLE name USING lexmill_table`
/// makes the table of that name in the file known to the connection; for kMasterAlias that is the
/// master table, which can only be read. Rows come in the order of their numbers. Statements on
/// such tables run inside a Statement of the database; changes go straight to it.
class TableModule {
 public:
  /// What all tables of the module use.
  struct Context {
    Database& database;
    SchemaCompiler& schema;  ///< follows the database
    Table master;
  };

  /// @param connection  of libsqlite3, has to be closed before this object goes
  TableModule(sqlite3* connection, Database& database, SchemaCompiler& schema);

 private:
  Context context_;
};

/// Whether a trigger belongs to `table`. Triggers are kept, but never run: their tables can only be
/// read.
[[nodiscard]] bool HasTrigger(Database& database, const Table& table);

}  // namespace lexmill::platform::sqlite
