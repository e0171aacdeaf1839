// SPDX-License-Identifier: MIT
// platform/sqlite/sql: Statements, carried out.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/sqlite/sql/engine.h"
#include "platform/sqlite/sql/plain_statement.h"
#include "platform/sqlite/sql/row_output.h"
#include "platform/sqlite/sql/schema_compiler.h"
#include "platform/sqlite/sql/statement_scanner.h"
#include "platform/sqlite/table/database.h"

namespace lexmill::platform::sqlite {

/// Carries out statements on a database. Those of the fixed forms go straight to the storage; all
/// others, and those that don't fit their table, go to libsqlite3. The outcome is the same.
class Session {
 public:
  /// Both have to outlive this object.
  Session(Database& database, RowOutput& rows)
      : database_(database), rows_(rows), engine_(database, schema_, rows) {}

  /// Carries out the statements in `text`, one by one.
  /// @throws DatabaseError  at the first that fails; only that one is undone
  void Run(std::string_view text);

  /// Adds the row of a plain INSERT. @return false if the statement is to be run as a text
  [[nodiscard]] bool Insert(const PlainInsert& insert);

  /// Takes `text` if it is an update of the fixed form that can wait for others of its kind.
  /// @return false if it isn't: `text` is to be run then, after Settle
  [[nodiscard]] bool Collect(std::string_view text);
  /// Carries out what was collected.
  /// @throws DatabaseError  if a row would become too long; it keeps its value
  void Settle();

 private:
  /// A table looked up by the name that a statement gives.
  struct Target {
    std::string name;
    std::uint64_t version = 0;
    const Table* table = nullptr;  ///< null if plain statements must not write it
  };

  [[nodiscard]] const Table* PlainTarget(std::string_view name);
  [[nodiscard]] std::size_t RunPlainInsert(std::string_view text);
  void RunStatement(std::string_view text);
  [[nodiscard]] bool RunPlainQuery(std::string_view text);
  void RunSchemaStatement(std::string_view text);
  void RunTransaction(SchemaStatement::Action action);
  void Create(const SchemaStatement& statement, std::string_view text);
  void CreateTable(const SchemaStatement& statement, const std::string& sql, std::string_view text);
  void Drop(const SchemaStatement& statement, std::string_view text);

  Database& database_;
  RowOutput& rows_;
  SchemaCompiler schema_;
  Engine engine_;
  PlainInsert insert_;
  PlainUpdate update_;
  Target target_;
  bool hasCollected_ = false;
};

}  // namespace lexmill::platform::sqlite
