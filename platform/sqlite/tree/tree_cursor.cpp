// SPDX-License-Identifier: MIT

// A cursor is the path from the root to an entry: a held page and a cell of it for each level.
// Inner pages hold entries too, so going in order means: the subtree before a cell, the cell, the
// subtree before the next, ..., the right subtree. `cell` of a level is the entry that comes when
// the subtree before it has been left; 0 says that the right subtree has been taken and the level
// is done with.
//
// Pages on the path are pinned, so their bytes stay. Nothing here trusts the file: pages are
// checked when they come into memory (CheckTreePage), and loops end in Enter.

#include "platform/sqlite/tree/tree_cursor.h"

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/tree/payload.h"

namespace lexmill::platform::sqlite {

bool TreeCursor::First() {
  Restart();
  return DescendLeft(root_);
}

bool TreeCursor::SeekAtLeast(std::string_view key) {
  Restart();
  std::string buffer;
  for (PageNumber page = root_; page != 0; page = ChildHere()) {
    Enter(page);
    Level& level = Top();
    while (level.cell != 0) {
      const CellView cell = Cell();
      const int order = CompareKey(pager_, cell, key, buffer);
      if (order == 0) {
        return true;
      }
      if (order > 0) {
        break;
      }
      level.cell = cell.Next();
    }
  }
  return Top().cell != 0 || Climb();
}

/// A path of one page: the way down isn't known, nor needed to read one entry.
void TreeCursor::GoTo(PageNumber page, std::size_t cell) {
  Restart();
  Enter(page);
  Level& level = Top();
  while (level.cell != cell) {
    if (level.cell == 0) {
      throw DatabaseError(kMalformed);
    }
    level.cell = Cell().Next();
  }
}

bool TreeCursor::Next() {
  if (depth_ == 0) {
    return false;
  }
  Level& level = Top();
  level.cell = Cell().Next();
  const PageNumber child = ChildHere();
  if (child != 0) {
    return DescendLeft(child);
  }
  return level.cell != 0 || Climb();
}

CellView TreeCursor::Cell() const {
  const Level& level = levels_[depth_ - 1];
  return {level.page.Bytes() + level.cell, pager_.Order()};
}

std::string_view TreeCursor::Payload(std::string& buffer) const {
  return ReadPayload(pager_, Cell(), buffer);
}

void TreeCursor::Restart() {
  while (depth_ > 0) {
    levels_[--depth_].page.Release();
  }
  entered_ = 0;
}

/// Goes down a level. A path deeper than any tree, or more pages than the file has, is a loop.
void TreeCursor::Enter(PageNumber page) {
  if (depth_ == kGreatestDepth || ++entered_ > pager_.Count()) {
    throw DatabaseError(kMalformed);
  }
  Level& level = levels_[depth_];
  level.page = pager_.ReadTree(page);
  level.cell = Get16(level.page.Bytes() + kFirstCellAt, pager_.Order());
  ++depth_;
}

PageNumber TreeCursor::ChildHere() const {
  const Level& level = levels_[depth_ - 1];
  return Get32(level.page.Bytes() + (level.cell == 0 ? kRightChildAt : level.cell + kLeftChildAt),
               pager_.Order());
}

bool TreeCursor::DescendLeft(PageNumber page) {
  for (; page != 0; page = ChildHere()) {
    Enter(page);
  }
  return Top().cell != 0 || Climb();
}

bool TreeCursor::Climb() {
  do {
    levels_[--depth_].page.Release();
  } while (depth_ > 0 && Top().cell == 0);
  return depth_ > 0;
}

}  // namespace lexmill::platform::sqlite
