// SPDX-License-Identifier: MIT
// platform/sqlite/table: many index entries at once.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "platform/sqlite/file/pager.h"
#include "platform/sqlite/table/table.h"
#include "platform/sqlite/tree/key_sorter.h"
#include "platform/sqlite/tree/record.h"

namespace lexmill::platform::sqlite {

/// Memory for the entries of an index while they are sorted.
inline constexpr std::size_t kIndexBuffer = std::size_t{8} * 1024 * 1024;

/// Gives the value of a column.
using ValueOf = std::function<Value(std::size_t column)>;

/// Makes `key` the entry of a row in an index.
void PutIndexKey(std::string& key, const Index& index, const ValueOf& value, RowId rowId);

/// Adds an entry for each row of a table.
void CollectEntries(Pager& pager, const Table& table, const Index& index, KeySorter& entries);

/// Adds collected entries to an index: in one pass if it is empty.
void AddEntries(Pager& pager, const Index& index, KeySorter& entries);

/// Throws unless all indexes of a table can be kept in step with its rows.
void CheckIndexesKnown(const Table& table);

}  // namespace lexmill::platform::sqlite
