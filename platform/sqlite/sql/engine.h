// SPDX-License-Identifier: MIT
// platform/sqlite/sql: queries of any kind on the tables of a file.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/sql/row_output.h"
#include "platform/sqlite/sql/table_module.h"
#include "platform/sqlite/table/database.h"

namespace lexmill::platform::sqlite {

/// Lets libsqlite3 answer queries on a database's tables and views. Tables are looped in the order
/// of FROM, and texts compared byte by byte.
class Engine {
 public:
  /// Both have to outlive this object.
  Engine(Database& database, RowOutput& rows) : database_(database), rows_(rows) {}

  /// Runs a SELECT and prints its rows. To be called inside a Statement.
  /// @throws DatabaseError  rows printed so far stay so
  void Run(std::string_view select);

 private:
  void Connect();
  void ConnectTable(std::string_view name);
  void Print(CompiledStatement& statement);

  Database& database_;
  RowOutput& rows_;
  std::uint64_t version_ = 0;  ///< of the objects that the connection knows
  std::unique_ptr<TableModule> module_;
  std::optional<Connection> connection_;  // goes before the module
};

}  // namespace lexmill::platform::sqlite
