// SPDX-License-Identifier: MIT
// platform/sqlite/table: Changing single rows of a table, and its indexes with them.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/sqlite/file/pager.h"
#include "platform/sqlite/table/index_filler.h"
#include "platform/sqlite/table/row_cursor.h"
#include "platform/sqlite/table/table.h"
#include "platform/sqlite/tree/record.h"

namespace lexmill::platform::sqlite {

/// Changes rows where they stand.
class RowChanger {
 public:
  /// @throws DatabaseError if an index of the table can't be kept in step
  RowChanger(Pager& pager, const Table& table);

  /// Adds a row. @throws DatabaseError if there is one of that number, or an equal one in a unique
  ///   index
  void Insert(RowId rowId, std::span<const Value> values);
  /// Nothing if there is no such row.
  void Update(RowId rowId, std::span<const Value> values);
  /// Nothing if there is no such row.
  void Delete(RowId rowId);

 private:
  void PutRow(RowId rowId, std::span<const Value> values);
  void CheckUnique(const ValueOf& value, RowId rowId);
  void RemoveEntry(const Index& index, std::string_view entry);

  Pager& pager_;
  const Table& table_;
  RowCursor rows_;
};

}  // namespace lexmill::platform::sqlite
