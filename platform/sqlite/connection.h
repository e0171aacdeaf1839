// SPDX-License-Identifier: MIT
// platform/sqlite: the database shell. libsqlite3, in objects that close what they open.
#pragma once

#include <sqlite3.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/sqlite/database_error.h"

namespace lexmill::platform::sqlite {

/// The code that reports a failure to libsqlite3, so that it comes back from CompiledStatement
/// and Connection as what it was.
[[nodiscard]] int ResultCodeOf(const DatabaseError& failure);

/// A compiled statement. Lives shorter than its connection.
class CompiledStatement {
 public:
  CompiledStatement(sqlite3* connection, sqlite3_stmt* statement)
      : connection_(connection), statement_(statement) {}

  /// Runs to the next row. @return false at the end
  /// @throws DatabaseError
  [[nodiscard]] bool Step();

  [[nodiscard]] int ColumnCount() const { return sqlite3_column_count(statement_.get()); }
  /// A column's name as libsqlite3 gives it, from 0.
  [[nodiscard]] std::string ColumnName(int column) const;
  /// A value of the current row as text, good until the next step; none for NULL.
  [[nodiscard]] std::optional<std::string_view> Column(int column) const;

 private:
  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };

  sqlite3* connection_;
  std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
};

/// A connection to an empty database of libsqlite3's own, which lives as long as this object, in
/// memory as long as it is small.
class Connection {
 public:
  Connection();

  [[nodiscard]] sqlite3* Handle() const { return handle_.get(); }

  /// Compiles the one statement in `sql`; none if it holds blanks only.
  /// @throws DatabaseError
  [[nodiscard]] std::optional<CompiledStatement> Compile(std::string_view sql);
  /// Compiles and runs, without regard to rows.
  /// @throws DatabaseError
  void Run(std::string_view sql);
  /// Runs a CREATE statement that a file holds and that may be meant to do harm: whatever would
  /// compute, read or reach out of this database is refused.
  /// @throws DatabaseError
  void Declare(std::string_view sql);
  /// The same, but does nothing where libsqlite3 refuses: an object of another program's database
  /// that it doesn't understand can be kept, but not used.
  void DeclareIfUnderstood(std::string_view sql);

 private:
  struct Closer {
    void operator()(sqlite3* handle) const { sqlite3_close(handle); }
  };

  std::unique_ptr<sqlite3, Closer> handle_;
};

/// `name` in double quotes, as SQL text.
[[nodiscard]] std::string QuoteName(std::string_view name);

}  // namespace lexmill::platform::sqlite
