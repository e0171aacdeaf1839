// SPDX-License-Identifier: MIT
// platform/sqlite/sql: The rows of table `S`, at hand for the join of a run.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "platform/sqlite/sql/hash_chains.h"
#include "platform/sqlite/sql/row_store.h"
#include "platform/sqlite/table/database.h"
#include "platform/sqlite/table/table_cursor.h"

namespace lexmill::platform::sqlite {

/// Values of a row of `S`: so, sh, sm, sk, st; of a row of the result: so, sh, r2, sk, st.
using FiveValues = std::array<Value, 5>;
/// Where the key stands among the five of `S`, and the translation among those of the result.
inline constexpr std::size_t kMiddle = 2;

/// The rows of `S` that have a key, numbered from 0 in the order of the table, and found by the
/// hash of the key; of equal rows the first. Those that don't fit into memory are read again
/// whenever they are asked for.
class UntranslatedRows {
 public:
  using Columns = std::array<std::size_t, 5>;

  /// Reads the whole table. @param columns  positions of the five columns in it
  UntranslatedRows(Database& database, const Table& table, const Columns& columns);

  /// Whether two rows differ in nothing but their keys. Only such rows can give equal rows of the
  /// result under different keys.
  [[nodiscard]] bool HasTwins() const { return hasTwins_; }

  /// Row numbers by HashOf(key). The key itself is still to be compared.
  [[nodiscard]] const HashChains& ByKey() const { return byKey_; }

  /// The values of a row. What isn't kept is read with `cursor`, one on the same table, and good
  /// until that moves.
  [[nodiscard]] FiveValues Values(std::uint32_t number, TableCursor& cursor) const;

 private:
  /// Looks for an earlier row that is equal but for its key. @return its key, none without one
  [[nodiscard]] std::optional<Value> KeyOfTwin(const FiveValues& values, const HashChains& byRest,
                                               std::uint32_t hash, TableCursor& cursor) const;

  bool hasTwins_ = false;
  HashChains byKey_;
  RowStore rows_;
};

}  // namespace lexmill::platform::sqlite
