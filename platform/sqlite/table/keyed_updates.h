// SPDX-License-Identifier: MIT
// platform/sqlite/table: many updates of rows by a text, made together.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "platform/sqlite/file/pager.h"
#include "platform/sqlite/table/table.h"
#include "platform/sqlite/tree/key_sorter.h"
#include "platform/sqlite/tree/tree_cursor.h"

namespace lexmill::platform::sqlite {

/// Collects `UPDATE table SET valueColumn=value WHERE keyColumn=key` and makes them together, in
/// constant memory.
class KeyedUpdates {
 public:
  /// @param table  outlives this object
  KeyedUpdates(Pager& pager, const Table& table, std::size_t keyColumn, std::size_t valueColumn);

  [[nodiscard]] bool IsFor(const Table& table, std::size_t keyColumn,
                           std::size_t valueColumn) const;
  /// Adds an update, which wins over earlier ones of the same text. Texts without NUL bytes.
  void Add(std::string_view key, std::string_view value);
  /// Makes all of them. Rows that would become too long keep their values.
  /// @return false if there was such a row, or if an update that a later one replaced would have
  ///   made one
  [[nodiscard]] bool Apply();

 private:
  using NextEntry = std::function<bool(std::string_view& entry)>;

  [[nodiscard]] bool AreFew(std::size_t count) const;
  void Search(const Index& index, KeySorter& changes);
  void MatchWithIndex(const Index& index, KeySorter& changes);
  void MatchWithRows(KeySorter& changes);
  void MatchWith(const NextEntry& nextEntry, KeySorter& changes);
  [[nodiscard]] bool NextUpdate();
  void ChangeRows(KeySorter& changes);
  void RewriteTable(KeySorter& changes);
  /// Makes `values_` those of a row with its new value.
  /// @param change  how much longer an earlier value would have been, then the new value
  /// @return false if that makes no difference, or the row too long
  [[nodiscard]] bool Renew(const RecordView& record, std::string_view change);

  Pager& pager_;
  const Table& table_;
  std::size_t keyColumn_;
  std::size_t valueColumn_;
  KeySorter updates_;
  std::uint32_t sequence_ = 0;
  std::string_view coming_;  ///< the update after the current one
  bool isComing_ = false;
  std::string current_;        ///< the last update of a text
  std::string_view text_;      ///< its text, as index entries hold it
  std::string_view newValue_;  ///< its value
  /// How much longer the longest value is that it replaces: 0 almost always.
  std::array<char, 4> excess_{};
  std::vector<Value> values_;
  bool isAllDone_ = true;
};

}  // namespace lexmill::platform::sqlite
