// SPDX-License-Identifier: MIT
// platform/sqlite/tree: filling a tree from left to right.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "platform/sqlite/file/page.h"
#include "platform/sqlite/file/pager.h"
#include "platform/sqlite/tree/page_packer.h"
#include "platform/sqlite/tree/record.h"

namespace lexmill::platform::sqlite {

/// Adds entries after the last one of a tree, in rising order of their keys. One page of each level
/// is open; full ones go out at once, so memory is constant. The tree is whole again only after
/// Finish; nothing else may change it meanwhile. A builder that is dropped without Finish leaves
/// work for the pager's mark or rollback.
class TreeBuilder {
 public:
  /// Goes on after the last entry of the tree at `root`.
  [[nodiscard]] static TreeBuilder Appending(Pager& pager, PageNumber root);
  /// Begins a new tree, which takes its place at `root` with Finish. What was there before is the
  /// caller's to free, between the last entry and Finish.
  [[nodiscard]] static TreeBuilder Replacing(Pager& pager, PageNumber root);

  /// The number of the last row of a table's tree; none while it is empty.
  [[nodiscard]] std::optional<RowId> LastRowId() const { return lastRowId_; }
  /// Adds a row. @throws DatabaseError kRowTooLong; the tree is then as before
  void AppendRow(RowId rowId, std::span<const Value> values);
  /// Adds an entry.
  void Append(std::string_view key, std::string_view data);
  /// Adds a copy of a cell that leaves another tree; its overflow pages stay with it.
  void AppendCell(CellView cell);
  /// Closes the open pages, the last one in the root.
  void Finish();

 private:
  /// The open page of a level, and the cell that has no room in it.
  struct Level {
    explicit Level(ByteOrder order) : page(order) {}

    PagePacker page;
    PageNumber number = 0;  ///< 0 until it is known
    std::array<char, kGreatestCell> waiting{};
    std::size_t waitingSize = 0;
  };

  TreeBuilder(Pager& pager, PageNumber root);

  void OpenRightmost(PageNumber page);
  void Load(Level& level, const char* page);
  [[nodiscard]] char* Reserve(std::size_t level, std::size_t size);
  void Promote(std::size_t level, std::string_view cell, PageNumber leftChild);
  void Separate(std::size_t level);
  void TakeBackSeparator(std::size_t level);
  PageNumber Write(Level& level, PageNumber rightChild);

  Pager& pager_;
  PageNumber root_;
  ByteOrder order_;
  std::vector<Level> levels_;  ///< from the leaves up
  std::optional<RowId> lastRowId_;
};

}  // namespace lexmill::platform::sqlite
