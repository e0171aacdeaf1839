// SPDX-License-Identifier: MIT
// platform/sqlite/sql: Statements about tables and transactions, understood.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/table/database.h"

namespace lexmill::platform::sqlite {

/// What a statement about objects or transactions asks for.
struct SchemaStatement {
  enum class Action {
    Nothing,  ///< IF NOT EXISTS or IF EXISTS found nothing to do
    Begin,
    Commit,
    Rollback,
    Create,
    Drop,
  };

  Action action = Action::Nothing;
  std::string type;          ///< of the object: "table", "index", "view" or "trigger"
  std::string name;          ///< of the object, without quotes
  std::string table;         ///< that an index or trigger belongs to
  bool isSelection = false;  ///< CREATE TABLE … AS SELECT
};

/// Understands such statements by letting libsqlite3 compile them against a likeness of the
/// database: all its tables, views and indexes, but no rows.
class SchemaCompiler {
 public:
  /// Brings the likeness up to the database's objects. To be called inside a Statement.
  void Follow(Database& database);

  /// Understands CREATE, DROP, BEGIN, COMMIT, END or ROLLBACK.
  /// @throws DatabaseError if the statement is wrong, or asks for what is not there
  [[nodiscard]] SchemaStatement Compile(std::string_view sql);

  /// Tells that `sql` is now carried out and the database at `version`; so the likeness need not be
  /// made anew.
  void Accept(std::string_view sql, std::uint64_t version);

  /// Which columns of `table` have a default value.
  [[nodiscard]] std::vector<bool> Defaults(const Table& table);

  /// The text that libsqlite3 itself would keep of a CREATE statement: without IF NOT EXISTS, and
  /// with columns in place of AS SELECT.
  [[nodiscard]] std::string KeptText(std::string_view sql);

 private:
  std::optional<Connection> likeness_;
  std::optional<std::uint64_t> version_;  ///< of the objects in the likeness
};

}  // namespace lexmill::platform::sqlite
