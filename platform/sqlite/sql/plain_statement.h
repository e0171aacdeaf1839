// SPDX-License-Identifier: MIT
// platform/sqlite/sql: statements of fixed forms, which scripts repeat a million times. They are
// recognised by their exact text and need no compiler; any other spelling is simply not recognised.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sqlite/table/table.h"

namespace lexmill::platform::sqlite {

/// Reads `INSERT INTO T VALUES ('…',NULL,…);`. An object serves many statements, to keep its
/// memory.
class PlainInsert {
 public:
  /// Reads the statement at the start of `text`. Its parts are views into `text` or this object,
  /// good until the next call.
  /// @return its length in bytes; 0 if there is none of this form, and no parts then
  [[nodiscard]] std::size_t Read(std::string_view text);

  [[nodiscard]] std::string_view Table() const { return table_; }
  [[nodiscard]] const std::vector<Value>& Values() const { return values_; }

 private:
  std::string_view table_;
  std::vector<Value> values_;
  std::vector<std::size_t> doubled_;  ///< which values hold doubled apostrophes
  std::string single_;                ///< their texts with single ones
};

/// Reads `UPDATE T SET c='…' WHERE k='…';`. An object serves many statements.
class PlainUpdate {
 public:
  /// As PlainInsert::Read.
  [[nodiscard]] std::size_t Read(std::string_view text);

  [[nodiscard]] std::string_view Table() const { return table_; }
  [[nodiscard]] std::string_view ValueColumn() const { return valueColumn_; }
  [[nodiscard]] std::string_view Value() const { return value_; }
  [[nodiscard]] std::string_view KeyColumn() const { return keyColumn_; }
  [[nodiscard]] std::string_view Key() const { return key_; }

 private:
  std::string_view table_;
  std::string_view valueColumn_;
  std::string_view value_;
  std::string_view keyColumn_;
  std::string_view key_;
  std::string single_;
};

/// `SELECT a,b,… FROM T;`
struct PlainListing {
  std::vector<std::string_view> columns;
  std::string_view table;
};

/// Reads a listing that makes up all of `text` but for blanks after it and perhaps the semicolon.
[[nodiscard]] std::optional<PlainListing> ReadPlainListing(std::string_view text);

/// A column as a join names it.
struct JoinColumn {
  std::string_view written;  ///< the whole name: `T.c`
  std::string_view table;
  std::string_view column;
};

/// `SELECT DISTINCT A.c,B.c,… FROM A INNER JOIN B ON A.k=B.k;`, perhaps with `Upper(A.k)`.
struct PlainJoin {
  std::vector<JoinColumn> columns;  ///< each of one of the two tables
  JoinColumn outer;                 ///< the key of the table named first
  JoinColumn inner;                 ///< the key of the other
  bool isUpper = false;             ///< the outer key is compared in upper case
};

/// Reads such a join under the same conditions.
[[nodiscard]] std::optional<PlainJoin> ReadPlainJoin(std::string_view text);

}  // namespace lexmill::platform::sqlite
