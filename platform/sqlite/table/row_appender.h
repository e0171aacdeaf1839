// SPDX-License-Identifier: MIT
// platform/sqlite/table: adding rows to the end of a table.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/sqlite/file/pager.h"
#include "platform/sqlite/table/table.h"
#include "platform/sqlite/tree/key_sorter.h"
#include "platform/sqlite/tree/record.h"
#include "platform/sqlite/tree/tree_builder.h"

namespace lexmill::platform::sqlite {

/// Adds rows after the last one, in constant memory. Table and indexes are whole only after
/// Finish; nothing may read or change them meanwhile.
class RowAppender {
 public:
  /// @param table  has no unique index; outlives the appender
  /// @throws DatabaseError if an index of the table can't be kept in step
  RowAppender(Pager& pager, const Table& table);

  [[nodiscard]] bool IsFor(const Table& table) const { return &table == &table_; }
  /// Whether there is no row number after the last.
  [[nodiscard]] bool IsFull() const;
  /// @param values  of a row that isn't too long
  void Append(std::span<const Value> values);
  void Finish();

 private:
  Pager& pager_;
  const Table& table_;
  TreeBuilder builder_;
  std::vector<std::unique_ptr<KeySorter>> entries_;  ///< of each index
  std::string key_;
};

}  // namespace lexmill::platform::sqlite
