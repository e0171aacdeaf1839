// SPDX-License-Identifier: MIT
// platform/sqlite: the database shell. Reading the rows of a table.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/sqlite/record.h"
#include "platform/sqlite/table.h"
#include "platform/sqlite/tree_cursor.h"

namespace lexmill::platform::sqlite {

class Database;

/// The rows of a table in the order of their numbers. Lives inside a Statement. Rows may be changed
/// meanwhile: Next goes on behind the row it gave last. Damage throws kMalformed.
class TableCursor {
 public:
  /// @param table  as found in `database`; has to outlive the cursor
  TableCursor(Database& database, const Table& table);

  /// Goes to the first row, the first time, then to the next. @return false behind the last
  [[nodiscard]] bool Next();
  /// Goes to the row of that number; Next goes on behind it. @return false if there is none
  [[nodiscard]] bool Seek(RowId rowId);
  /// Next begins with the first row again.
  void Rewind();

  [[nodiscard]] RowId CurrentRowId() const { return rowId_; }
  /// The current row's value. The text lies in a page or a buffer of the cursor: it is good until
  /// the cursor moves or the table changes. NULL for a column that the row doesn't have.
  [[nodiscard]] Value Column(std::size_t column) const { return record_.Column(column); }

 private:
  bool Load();

  TreeCursor tree_;
  std::optional<RowId> last_;
  RowId rowId_ = 0;
  RecordView record_;
  std::string overflow_;
};

/// The numbers of the rows with a certain text in an indexed column, in rising order.
class IndexCursor {
 public:
  /// @param index  searchable, with one column; has to outlive the cursor
  IndexCursor(Database& database, const Index& index);

  /// Looks for another text. It is copied.
  void Seek(std::string_view text);
  /// @return the next row's number; none behind the last
  [[nodiscard]] std::optional<RowId> Next();

 private:
  TreeCursor tree_;
  std::string prefix_;
  std::string from_;
  bool isStarted_ = false;
  std::string overflow_;
};

}  // namespace lexmill::platform::sqlite
