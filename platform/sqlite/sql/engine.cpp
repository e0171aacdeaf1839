// SPDX-License-Identifier: MIT
// libsqlite3 has a database of its own, an empty one in memory. In it each table of the file is
// declared as a virtual table of the module `lexmill_table`, which reads the rows where they are,
// and each view as it is written in the file. So any SELECT works, and nothing is copied.
//
// Three things have to be as in the shell of the file's time, not as libsqlite3 would have them:
//
//   - The order of rows. Tables are looped in the order of FROM: libsqlite3 would put the one with
//     the better index inside. It keeps the order of a CROSS JOIN, so every join is made one, and
//     the indexes that it would build for itself, with equal rows in another order, are off.
//   - Names of columns: what the query says, `R.r2` and not `r2`.
//   - `Upper`, which goes by the characters of the code page.
#include "platform/sqlite/sql/engine.h"

#include <vector>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/sql/statement_text.h"
#include "platform/sqlite/upper.h"
#include "platform/text/ansi_text.h"

namespace lexmill::platform::sqlite {
namespace {

/// The SQL function Upper.
void Upper(sqlite3_context* context, int, sqlite3_value** values) {
  const void* bytes = sqlite3_value_text(values[0]);
  if (bytes == nullptr) {
    return;
  }
  const auto length = static_cast<std::size_t>(sqlite3_value_bytes(values[0]));
  std::string upper;
  AppendUpper({static_cast<const char*>(bytes), length}, AnsiCodePage(), upper);
  sqlite3_result_text64(context, upper.data(), upper.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

std::string VirtualTableSql(std::string_view name) {
  return "CREATE VIRTUAL TABLE " + QuoteName(name) + " USING lexmill_table";
}

}  // namespace

void Engine::Run(std::string_view select) {
  if (!connection_ || version_ != database_.SchemaVersion()) {
    Connect();
  }
  if (auto statement = connection_->Compile(WithFixedJoinOrder(select))) {
    Print(*statement);
  }
}

/// Makes a connection that knows the tables and views of the database as they are now.
void Engine::Connect() {
  connection_.reset();  // before the module that its tables belong to
  connection_.emplace();
  sqlite3* handle = connection_->Handle();
  module_ = std::make_unique<TableModule>(handle, database_);
  sqlite3_create_function(handle, "upper", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, &Upper,
                          nullptr, nullptr);
  connection_->Run("PRAGMA automatic_index=OFF");
  connection_->Run("PRAGMA short_column_names=OFF");
  connection_->Run(VirtualTableSql(kMasterAlias));
  for (const CatalogObject& object : database_.Objects()) {
    if (object.type == "table") {
      ConnectTable(object.name);
    } else if (object.type == "view") {
      connection_->DeclareIfUnderstood(WithFixedJoinOrder(object.sql.value_or("")));
    }
  }
  version_ = database_.SchemaVersion();
}

/// A table whose statement isn't understood, such as one of another program, is as if it weren't
/// there: a query that names it fails, and only that.
void Engine::ConnectTable(std::string_view name) {
  try {
    connection_->Run(VirtualTableSql(name));
  } catch (const DatabaseError&) {
    return;
  }
}

void Engine::Print(CompiledStatement& statement) {
  const int count = statement.ColumnCount();
  std::vector<std::string> names;
  for (int i = 0; i < count; ++i) {
    names.push_back(statement.ColumnName(i));
  }
  std::vector<Value> values(names.size());
  while (statement.Step()) {
    for (int i = 0; i < count; ++i) {
      values[static_cast<std::size_t>(i)] = statement.Column(i);
    }
    rows_.Print(names, values);
  }
}

}  // namespace lexmill::platform::sqlite
