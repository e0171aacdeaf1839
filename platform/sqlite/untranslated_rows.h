// SPDX-License-Identifier: MIT
// platform/sqlite: the database shell. The rows of table `S`, at hand for the join of a run.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>

#include "platform/sqlite/database.h"
#include "platform/sqlite/hash_chains.h"
#include "platform/sqlite/packed_rows.h"
#include "platform/sqlite/table_cursor.h"

namespace lexmill::platform::sqlite {

/// Values of a row of `S`: so, sh, sm, sk, st; of a row of the result: so, sh, r2, sk, st.
using FiveValues = std::array<Value, 5>;
/// Where the key stands among the five of `S`, and the translation among those of the result.
inline constexpr std::size_t kMiddle = 2;

/// The rows of `S` that have a key, numbered from 0 in the order of the table, and found by the
/// hash of the key. Those that don't fit into memory are read again whenever they are asked for.
class UntranslatedRows {
 public:
  using Columns = std::array<std::size_t, 5>;

  /// Reads the whole table. @param columns  positions of the five columns in it
  UntranslatedRows(Database& database, const Table& table, const Columns& columns);

  /// Row numbers by HashOf(key). The key itself is still to be compared.
  [[nodiscard]] const HashChains& ByKey() const { return byKey_; }

  /// The values of a row. What isn't kept is read with `cursor`, one on the same table, and good
  /// until that moves.
  [[nodiscard]] FiveValues Values(std::uint32_t number, TableCursor& cursor) const;

 private:
  struct Source {
    RowId rowId;
    std::uint32_t place;  ///< among the packed rows
  };

  [[nodiscard]] FiveValues ValuesOf(const TableCursor& cursor) const;

  Columns columns_;
  HashChains byKey_;
  std::deque<Source> sources_;
  PackedRows packed_;
};

}  // namespace lexmill::platform::sqlite
