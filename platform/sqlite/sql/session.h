// SPDX-License-Identifier: MIT
// platform/sqlite/sql: statements of any kind, run on a database.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/sqlite/sql/engine.h"
#include "platform/sqlite/sql/plain_statement.h"
#include "platform/sqlite/sql/row_output.h"
#include "platform/sqlite/table/database.h"

namespace lexmill::platform::sqlite {

/// Runs statements on a database. Queries are libsqlite3's work, but for those of the fixed
/// forms, which go straight to the tables with the same outcome. Rows are written by statements of
/// two fixed forms only (PlainInsert, PlainUpdate).
class Session {
 public:
  /// Both have to outlive this object.
  Session(Database& database, RowOutput& rows)
      : database_(database), rows_(rows), engine_(database, rows) {}

  /// Runs the statements in `text`, one by one.
  /// @throws DatabaseError  at the first that fails; only that one is undone
  void Run(std::string_view text);

  /// Adds the row of a plain INSERT. @return false if the statement is to be run as a text
  [[nodiscard]] bool Insert(const PlainInsert& insert);

  /// Takes `text` if it is a plain UPDATE that can wait for others of its kind.
  /// @return false if it isn't: `text` is to be run then, after Settle
  [[nodiscard]] bool Collect(std::string_view text);
  /// Makes the updates that were collected.
  /// @throws DatabaseError  if a row would become too long; it keeps its value
  void Settle();

 private:
  using Action = void (Session::*)(std::string_view text);
  /// A statement's first word and what runs it.
  struct Verb {
    std::string_view word;
    Action action;
  };
  static const Verb kVerbs[];

  /// A table looked up by the name that a statement gives.
  struct Target {
    std::string name;
    std::uint64_t version = 0;
    const Table* table = nullptr;  ///< null if it isn't there or can only be read
  };

  [[nodiscard]] const Table* WritableTable(std::string_view name);
  [[nodiscard]] const Table& CheckWritable(std::string_view name);
  [[nodiscard]] std::size_t RunPlainInsert(std::string_view text);
  void RunStatement(std::string_view text);
  template <void (Database::*kStep)()>
  void RunTransaction(std::string_view text);
  void RunCreate(std::string_view text);
  void RunInsert(std::string_view text);
  void RunUpdate(std::string_view text);
  void RunSelect(std::string_view text);

  Database& database_;
  RowOutput& rows_;
  Engine engine_;
  PlainInsert insert_;
  PlainUpdate update_;
  Target target_;
  bool hasCollected_ = false;
};

}  // namespace lexmill::platform::sqlite
