// SPDX-License-Identifier: MIT
// platform/sqlite/sql: the rows of a table, found by a key.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "platform/sqlite/sql/hash_chains.h"
#include "platform/sqlite/sql/row_store.h"
#include "platform/sqlite/table/database.h"
#include "platform/sqlite/table/table_cursor.h"

namespace lexmill::platform::sqlite {

/// The rows of a table that have a key, numbered from 0 in the order of the table, and found by the
/// hash of the key; of equal rows the first. Those that don't fit into memory are read again
/// whenever they are asked for.
class KeyedRows {
 public:
  /// Reads the whole table.
  /// @param columns  positions of the columns that are kept, the key's last
  /// @return none if two rows have different keys, and else the same values
  [[nodiscard]] static std::optional<KeyedRows> Read(Database& database, const Table& table,
                                                     std::span<const std::size_t> columns);

  /// Row numbers by HashOf(key). The key itself is still to be compared.
  [[nodiscard]] const HashChains& ByKey() const { return byKey_; }

  /// Gives the values of a row, the key last. What isn't kept is read with `cursor`, one on the
  /// same table, and good until that moves.
  void Read(std::uint32_t number, TableCursor& cursor, std::span<Value> values) const {
    rows_.Read(number, cursor, values);
  }

 private:
  explicit KeyedRows(std::span<const std::size_t> columns);

  HashChains byKey_;
  RowStore rows_;
};

}  // namespace lexmill::platform::sqlite
