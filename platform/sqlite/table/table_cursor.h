// SPDX-License-Identifier: MIT
// platform/sqlite/table: Reading the rows of a table.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "platform/sqlite/table/row_cursor.h"
#include "platform/sqlite/table/table.h"

namespace lexmill::platform::sqlite {

class Database;

/// The rows of a table in the order of their numbers. Lives inside a Statement. Rows may be changed
/// meanwhile: Next goes on behind the row it gave last. Damage throws kMalformed.
class TableCursor {
 public:
  /// @param table  as found in `database`
  TableCursor(Database& database, const Table& table);

  /// Goes to the first row, the first time, then to the next. @return false behind the last
  [[nodiscard]] bool Next();
  /// Goes to the row of that number; Next goes on behind it. @return false if there is none
  [[nodiscard]] bool Seek(RowId rowId);
  /// Next begins with the first row again.
  void Rewind() { rows_.Rewind(); }

  /// Where the current row stands; 0 if that can't be told, and Seek has to do.
  [[nodiscard]] RowPlace CurrentPlace() const { return rows_.CurrentPlace(); }
  /// Reads the row at a place again, without a way through the tree. Good as long as the table
  /// isn't changed; only Seek, SeekPlace and Rewind make sense then.
  void SeekPlace(RowPlace place) { rows_.SeekPlace(place); }

  [[nodiscard]] RowId CurrentRowId() const { return rows_.CurrentRowId(); }
  /// The current row's value. The text lies in a page or a buffer of the cursor: it is good until
  /// the cursor moves or the table changes. NULL for a column that the row doesn't have.
  [[nodiscard]] Value Column(std::size_t column) const { return rows_.Record().Column(column); }

 private:
  Database& database_;
  RowCursor rows_;
};

/// The numbers of the rows with a certain text in an indexed column, in rising order. Lives inside
/// a Statement.
class IndexCursor {
 public:
  /// @param index  searchable, with one column
  IndexCursor(Database& database, const Index& index);

  /// Looks for another text. It is copied.
  void Seek(std::string_view text) { entries_.Seek(text); }
  /// @return the next row's number; none behind the last
  [[nodiscard]] std::optional<RowId> Next();

 private:
  Database& database_;
  EntryCursor entries_;
};

}  // namespace lexmill::platform::sqlite
