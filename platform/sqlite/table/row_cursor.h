// SPDX-License-Identifier: MIT
// platform/sqlite/table: Rows of a tree and row numbers of an index.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/sqlite/file/page.h"
#include "platform/sqlite/file/pager.h"
#include "platform/sqlite/tree/record.h"
#include "platform/sqlite/tree/tree_cursor.h"

namespace lexmill::platform::sqlite {

/// Where a row stands in the file; 0 stands for a place beyond what fits here.
using RowPlace = std::uint32_t;

/// The rows of a table's tree in the order of their numbers. The tree may be changed meanwhile.
/// Damage throws kMalformed.
class RowCursor {
 public:
  RowCursor(Pager& pager, PageNumber root) : tree_(pager, root) {}

  /// Goes to the first row, the first time, then to the next. @return false behind the last
  [[nodiscard]] bool Next();
  /// Goes to the row of that number; Next goes on behind it. @return false if there is none
  [[nodiscard]] bool Seek(RowId rowId);
  /// Next begins with the first row again.
  void Rewind() { last_.reset(); }

  [[nodiscard]] RowPlace CurrentPlace() const;
  /// Goes to the row at a place that CurrentPlace told, not 0; good as long as nothing is changed.
  /// Only Seek, SeekPlace and Rewind make sense then.
  void SeekPlace(RowPlace place);

  [[nodiscard]] RowId CurrentRowId() const { return *last_; }
  /// The current row. Its texts are good until the cursor moves or the tree changes.
  [[nodiscard]] const RecordView& Record() const { return record_; }

 private:
  [[nodiscard]] bool FindNext();
  void Load();

  TreeCursor tree_;
  std::optional<RowId> last_;
  RecordView record_;
  std::string overflow_;
};

/// The number of the row that a tree's entry belongs to, the last bytes of its key.
/// @throws DatabaseError kMalformed for a key too short
[[nodiscard]] RowId RowIdOfEntry(std::string_view key);

/// The entries of an index tree that begin with a certain text, in rising order of their rows.
class EntryCursor {
 public:
  EntryCursor(Pager& pager, PageNumber root) : tree_(pager, root) {}

  /// Looks for another text. It is copied.
  void Seek(std::string_view text);
  /// @return the next row's number; none behind the last
  [[nodiscard]] std::optional<RowId> Next();

 private:
  [[nodiscard]] bool FindNext();

  TreeCursor tree_;
  std::string prefix_;
  std::optional<RowId> last_;
  bool isAtEnd_ = true;
  std::string overflow_;
};

}  // namespace lexmill::platform::sqlite
