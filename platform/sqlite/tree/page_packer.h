// SPDX-License-Identifier: MIT
// platform/sqlite/tree: A tree page in the making.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "platform/sqlite/file/page.h"

namespace lexmill::platform::sqlite {

/// A page whose cells follow one another in key order, and then the free room.
class PagePacker {
 public:
  explicit PagePacker(ByteOrder order) : order_(order) { Clear(); }

  /// Makes the page empty again.
  void Clear();
  [[nodiscard]] bool IsEmpty() const { return last_ == 0; }
  /// Whether a cell of `size` bytes fits in after the last.
  [[nodiscard]] bool HasRoom(std::size_t size) const { return used_ + size <= kPageSize; }

  /// Adds a cell of `size` bytes after the last, for which there has to be room.
  /// @return where it has to be written, its place in the chain being the 0 that PutCellHead puts
  ///   there
  [[nodiscard]] char* Reserve(std::size_t size);
  /// Adds a copy of a cell.
  void Append(std::string_view cell, PageNumber leftChild);
  /// The last cell; there has to be one.
  [[nodiscard]] CellView Last() const { return {&page_[last_], order_}; }
  /// Takes the last of several cells away; its bytes are valid until the next change.
  CellView TakeLast();

  /// Completes the page. @return its bytes, good until the next change
  [[nodiscard]] const char* Complete(PageNumber rightChild);

 private:
  std::array<char, kPageSize> page_{};
  ByteOrder order_;
  std::size_t used_ = 0;
  std::size_t last_ = 0;  ///< offset of the last cell, 0 if there is none
};

}  // namespace lexmill::platform::sqlite
