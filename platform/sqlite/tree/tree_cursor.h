// SPDX-License-Identifier: MIT
// platform/sqlite/tree: going through a tree in the order of its keys.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "platform/sqlite/file/page.h"
#include "platform/sqlite/file/pager.h"

namespace lexmill::platform::sqlite {

/// A place in a tree. Keeps the pages from the root to its entry in memory. Damage throws
/// kMalformed, a loop in the tree included.
class TreeCursor {
 public:
  TreeCursor(Pager& pager, PageNumber root) : pager_(pager), root_(root) {}

  /// Goes to the first entry. @return false if the tree is empty
  [[nodiscard]] bool First();
  /// Goes to the first entry whose key is not less than `key`. @return false if there is none
  [[nodiscard]] bool SeekAtLeast(std::string_view key);
  /// Goes to an entry by its page and the offset of its cell. First and SeekAtLeast make sense
  /// then, Next doesn't.
  void GoTo(PageNumber page, std::size_t cell);
  /// Goes to the next entry; the tree must not have been changed. @return false after the last
  [[nodiscard]] bool Next();

  [[nodiscard]] PageNumber CurrentPage() const { return levels_[depth_ - 1].page.Number(); }
  [[nodiscard]] std::size_t CellOffset() const { return levels_[depth_ - 1].cell; }
  [[nodiscard]] CellView Cell() const;
  /// Key and data of the entry in one piece: in the page, or put together in `buffer`.
  [[nodiscard]] std::string_view Payload(std::string& buffer) const;

 private:
  struct Level {
    PageRef page;
    std::size_t cell = 0;  ///< offset of the cell, 0 when the right child was taken
  };

  void Restart();
  void Enter(PageNumber page);
  [[nodiscard]] bool DescendLeft(PageNumber page);
  /// Goes up to the entry after a subtree that has been left. @return false at the end
  [[nodiscard]] bool Climb();
  [[nodiscard]] Level& Top() { return levels_[depth_ - 1]; }
  /// The child in front of the current cell, or the right one; 0 on a leaf.
  [[nodiscard]] PageNumber ChildHere() const;

  Pager& pager_;
  PageNumber root_;
  std::array<Level, kGreatestDepth> levels_;
  std::size_t depth_ = 0;
  std::size_t entered_ = 0;
};

}  // namespace lexmill::platform::sqlite
