// SPDX-License-Identifier: MIT
// platform/sqlite/sql: rows kept in memory as long as there is room.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "platform/sqlite/table/table.h"

namespace lexmill::platform::sqlite {

/// As many rows as fit into a number of megabytes, closely packed: a text that the row's first one
/// holds takes no room of its own.
class PackedRows {
 public:
  static constexpr std::uint32_t kNoPlace = UINT32_MAX;

  explicit PackedRows(std::size_t megabytes) : mostBlocks_(megabytes) {}

  /// Packs a row. @return its place; kNoPlace if it is too long or there is no room left
  [[nodiscard]] std::uint32_t Add(std::span<const Value> values);

  /// Gives the values at `place`, as many as were packed there.
  void Read(std::uint32_t place, std::span<Value> values) const;

 private:
  [[nodiscard]] char* Reserve(std::size_t size);

  std::size_t mostBlocks_;
  std::vector<std::unique_ptr<char[]>> blocks_;
  std::size_t used_ = 0;  ///< bytes of the last block
};

}  // namespace lexmill::platform::sqlite
