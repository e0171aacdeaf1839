// SPDX-License-Identifier: MIT
// platform/sqlite/sql: the tables of a file as virtual tables of libsqlite3.
#pragma once

#include <sqlite3.h>

#include "platform/sqlite/table/database.h"

namespace lexmill::platform::sqlite {

/// The module `lexmill_table` of one connection. `CREATE VIRTUAL TABLE name USING lexmill_table`
/// makes the table of that name in the file known to the connection, for reading; kMasterAlias is
/// the master table. Rows come in the order of their numbers. Queries run inside a Statement of the
/// database.
class TableModule {
 public:
  /// What all tables of the module use.
  struct Context {
    Database& database;
    Table master;
  };

  /// @param connection  of libsqlite3, has to be closed before this object goes
  TableModule(sqlite3* connection, Database& database);

 private:
  Context context_;
};

}  // namespace lexmill::platform::sqlite
