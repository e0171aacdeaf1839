// SPDX-License-Identifier: MIT
// platform/sqlite/sql: Statements of any kind on the tables of a file.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/sql/row_output.h"
#include "platform/sqlite/sql/schema_compiler.h"
#include "platform/sqlite/sql/table_module.h"
#include "platform/sqlite/table/database.h"

namespace lexmill::platform::sqlite {

/// Lets libsqlite3 carry out statements on a database's tables: queries, INSERT, UPDATE, DELETE.
/// Tables are looped in the order of FROM, and texts compared byte by byte.
class Engine {
 public:
  /// All three have to outlive this object.
  Engine(Database& database, SchemaCompiler& schema, RowOutput& rows)
      : database_(database), schema_(schema), rows_(rows) {}

  /// Runs a statement and prints its rows.
  /// @throws DatabaseError  after the statement is undone; rows printed so far stay so
  void Run(std::string_view sql);

  /// Runs a statement that gives no rows within a writing Statement of the caller's.
  void RunInside(std::string_view sql);

 private:
  [[nodiscard]] std::optional<CompiledStatement> Compile(const std::string& sql);
  void Connect();
  void Print(CompiledStatement& statement);

  Database& database_;
  SchemaCompiler& schema_;
  RowOutput& rows_;
  std::uint64_t version_ = 0;
  std::unique_ptr<TableModule> module_;
  std::optional<Connection> connection_;  // goes before the module
};

}  // namespace lexmill::platform::sqlite
