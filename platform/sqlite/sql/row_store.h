// SPDX-License-Identifier: MIT
// platform/sqlite/sql: rows, found by their number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <vector>

#include "platform/sqlite/sql/packed_rows.h"
#include "platform/sqlite/table/table_cursor.h"

namespace lexmill::platform::sqlite {

/// Rows of one table, numbered from 0. The first of them, as many as fit into a fixed amount of
/// memory, are kept; of each later one only its place, 4 bytes, and it is read again whenever it is
/// asked for. Lives as long as the table isn't changed.
class RowStore {
 public:
  /// @param columns    positions of the columns that are kept
  /// @param megabytes  for the rows that are kept
  RowStore(std::span<const std::size_t> columns, std::size_t megabytes)
      : columns_(columns.begin(), columns.end()), packed_(megabytes) {}

  /// Takes the current row of `cursor`, under the next number. `values` are its columns.
  /// @throws DatabaseError if its place has no number: in a file of more than 16 GB
  void Add(const TableCursor& cursor, std::span<const Value> values);

  /// Gives the columns of a row. What isn't kept is read with `cursor`, one on the same table, and
  /// good until that moves.
  void Read(std::uint32_t number, TableCursor& cursor, std::span<Value> values) const;

  /// Gives the columns of the current row of `cursor`.
  void ReadCurrent(const TableCursor& cursor, std::span<Value> values) const;

 private:
  std::vector<std::size_t> columns_;
  PackedRows packed_;
  std::deque<std::uint32_t> packedPlaces_;  ///< of the rows that are kept
  std::deque<RowPlace> places_;             ///< of the others; with one of them, no more are kept
};

}  // namespace lexmill::platform::sqlite
