// SPDX-License-Identifier: MIT
// platform/sqlite/table: reading the rows of a table, and the row numbers in an index.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/sqlite/file/page.h"
#include "platform/sqlite/file/pager.h"
#include "platform/sqlite/table/table.h"
#include "platform/sqlite/tree/record.h"
#include "platform/sqlite/tree/tree_cursor.h"

namespace lexmill::platform::sqlite {

class Database;

/// Where a row is in the file; 0 for a place beyond what fits here.
using RowPlace = std::uint32_t;

/// The rows of a table in the order of their numbers. Nothing may be changed while Next goes
/// through them. Damage throws kMalformed.
class TableCursor {
 public:
  /// @param table  as found in `database`. The cursor lives inside a Statement
  TableCursor(Database& database, const Table& table);
  TableCursor(Pager& pager, PageNumber root) : tree_(pager, root) {}

  /// Goes to the first row, the first time, then to the next. @return false after the last
  [[nodiscard]] bool Next();
  /// Goes to the row of that number; Next goes on after it. @return false if there is none
  [[nodiscard]] bool Seek(RowId rowId);
  /// Next begins with the first row again.
  void Rewind() { last_.reset(); }

  /// Where the current row is; 0 if that can't be said, and Seek has to do.
  [[nodiscard]] RowPlace CurrentPlace() const;
  /// Reads the row at a place again, without a way through the tree. Good as long as the table
  /// isn't changed; only Seek, SeekPlace and Rewind make sense then.
  void SeekPlace(RowPlace place);

  [[nodiscard]] RowId CurrentRowId() const { return *last_; }
  /// The current row. Its texts are in a page or a buffer of the cursor: they are valid until the
  /// cursor moves or the table changes.
  [[nodiscard]] const RecordView& Record() const { return record_; }
  /// The current row's value; NULL for a column that the row doesn't have.
  [[nodiscard]] Value Column(std::size_t column) const { return record_.Column(column); }

 private:
  void Load();

  TreeCursor tree_;
  std::optional<RowId> last_;
  RecordView record_;
  std::string overflow_;
};

/// The numbers of the rows with a certain text in an indexed column, in rising order. Nothing may
/// be changed between two calls of Next.
class IndexCursor {
 public:
  /// @param index  searchable, with one column. The cursor lives inside a Statement
  IndexCursor(Database& database, const Index& index);
  IndexCursor(Pager& pager, PageNumber root) : tree_(pager, root) {}

  /// Looks for another text. It is copied.
  void Seek(std::string_view text);
  /// @return the next row's number; none after the last
  [[nodiscard]] std::optional<RowId> Next();

 private:
  [[nodiscard]] bool FindNext();

  TreeCursor tree_;
  std::string prefix_;
  bool isFirst_ = true;
  bool isAtEnd_ = true;
  std::string overflow_;
};

/// The number of the row that an index entry belongs to, the last bytes of its key.
/// @throws DatabaseError kMalformed for a key too short
[[nodiscard]] RowId RowIdOfEntry(std::string_view key);

}  // namespace lexmill::platform::sqlite
