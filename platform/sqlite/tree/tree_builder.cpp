// SPDX-License-Identifier: MIT

// Fills a tree from left to right, level by level at the same time. Of each level one page is open,
// the rightmost; entries go into the open leaf. When a cell has no room there, it waits. As soon as
// another follows, the page is closed and written, the waiting cell goes up a level as the
// separator after it (inner pages hold entries, too), and the cell that followed begins a new page.
// So pages are full, each is written once, and no page is closed before something follows it.
//
// Finish closes the open pages from the leaves up. A level's last page becomes the right child of
// the level above, and the top level's page goes to the root's place, whatever it was called
// before: a tree keeps its root page for good, since the master table names it.
//
// Invariants, for each level from the leaves up:
//   - all entries in its open page are greater than those in closed pages of the level, and less
//     than any that come;
//   - the left children of the cells in the page are closed, written pages of the level below; the
//     child after its last cell is the open page below, which has no place in the tree until it is
//     closed;
//   - a cell waits only when the page is not empty, and takes part in nothing until Separate or
//     Finish.
//
// Appending opens the rightmost page of each level as if they had been built here; nothing else of
// the tree is read. Replacing builds beside the old tree, which stays readable until its pages are
// freed.

#include "platform/sqlite/tree/tree_builder.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/file/free_list.h"
#include "platform/sqlite/tree/payload.h"

namespace lexmill::platform::sqlite {
namespace {

std::string_view BytesOf(CellView cell) {
  return {cell.Bytes(), cell.Size()};
}

}  // namespace

TreeBuilder::TreeBuilder(Pager& pager, PageNumber root)
    : pager_(pager), root_(root), order_(pager.Order()) {
  levels_.reserve(kGreatestDepth);
}

TreeBuilder TreeBuilder::Appending(Pager& pager, PageNumber root) {
  TreeBuilder builder(pager, root);
  builder.OpenRightmost(root);
  return builder;
}

TreeBuilder TreeBuilder::Replacing(Pager& pager, PageNumber root) {
  TreeBuilder builder(pager, root);
  builder.levels_.emplace_back(builder.order_);
  return builder;
}

void TreeBuilder::OpenRightmost(PageNumber page) {
  while (page != 0) {
    if (levels_.size() == kGreatestDepth) {
      throw DatabaseError(kMalformed);
    }
    const PageRef ref = pager_.ReadTree(page);
    Level& level = levels_.emplace_back(order_);
    level.number = page == root_ ? 0 : page;
    Load(level, ref.Bytes());
    page = Get32(ref.Bytes() + kRightChildAt, order_);
  }
  std::ranges::reverse(levels_);  // found from the root down
  const PagePacker& leaf = levels_.front().page;
  if (!leaf.IsEmpty() && leaf.Last().KeyLength() == RowKey{}.size()) {
    lastRowId_ = ToRowId(leaf.Last().Payload());
  }
}

void TreeBuilder::Load(Level& level, const char* page) {
  for (std::size_t at = Get16(page + kFirstCellAt, order_); at != 0;) {
    const CellView cell(page + at, order_);
    level.page.Append(BytesOf(cell), cell.LeftChild());
    at = cell.Next();
  }
}

void TreeBuilder::AppendRow(RowId rowId, std::span<const Value> values) {
  const RecordShape shape = ShapeOf(values);
  const RowKey key = ToRowKey(rowId);
  const std::size_t payload = key.size() + shape.size;
  if (payload <= kLocalPayload) {
    char* at = Reserve(0, CellSize(payload));
    PutCellHead(at, 0, key.size(), shape.size, order_);
    std::memcpy(at + kCellHeadSize, key.data(), key.size());
    PutRecord(at + kCellHeadSize + key.size(), shape, values);
  } else {
    std::string record(shape.size, '\0');
    PutRecord(record.data(), shape, values);
    Append({key.data(), key.size()}, record);
  }
  lastRowId_ = rowId;
}

void TreeBuilder::Append(std::string_view key, std::string_view data) {
  PutCell(pager_, Reserve(0, CellSize(key.size() + data.size())), key, data);
}

void TreeBuilder::AppendCell(CellView cell) {
  Promote(0, BytesOf(cell), 0);
}

/// Room for the next cell of a level: in its page, or where the separator waits.
char* TreeBuilder::Reserve(std::size_t level, std::size_t size) {
  if (levels_[level].waitingSize != 0) {
    Separate(level);
  }
  Level& open = levels_[level];
  if (open.page.HasRoom(size)) {
    return open.page.Reserve(size);
  }
  open.waitingSize = size;
  return open.waiting.data();
}

/// Adds a cell to a level, with the child before it; the level begins here if there is none yet.
void TreeBuilder::Promote(std::size_t level, std::string_view cell, PageNumber leftChild) {
  if (level == levels_.size()) {
    levels_.emplace_back(order_);
  }
  char* at = Reserve(level, cell.size());
  cell.copy(at, cell.size());
  Put32(at + kLeftChildAt, leftChild, order_);
  Put16(at + kNextCellAt, 0, order_);
}

/// Closes the open page: the waiting cell is the separator after it. A separator's left child is
/// the closed page; what was its own left child becomes the page's right one.
void TreeBuilder::Separate(std::size_t level) {
  Level& open = levels_[level];
  const CellView separator(open.waiting.data(), order_);
  const PageNumber page = Write(open, separator.LeftChild());
  open.page.Clear();
  open.waitingSize = 0;
  Promote(level + 1, BytesOf(separator), page);
}

/// Ends a level whose waiting cell is the last of all and has nothing to separate: the last cell of
/// the page goes up in its place, and it gets the next page to itself.
void TreeBuilder::TakeBackSeparator(std::size_t level) {
  Level& open = levels_[level];
  const std::string separator(BytesOf(open.page.TakeLast()));
  const CellView view(separator.data(), order_);
  const PageNumber page = Write(open, view.LeftChild());
  const CellView waiting(open.waiting.data(), order_);
  open.page.Clear();
  open.page.Append(BytesOf(waiting), waiting.LeftChild());
  open.waitingSize = 0;
  Promote(level + 1, separator, page);
}

PageNumber TreeBuilder::Write(Level& level, PageNumber rightChild) {
  const PageNumber page = level.number != 0 ? level.number : AllocatePage(pager_);
  pager_.Put(page, level.page.Complete(rightChild));
  level.number = 0;
  return page;
}

void TreeBuilder::Finish() {
  PageNumber child = 0;  // the last page of the level below
  for (std::size_t level = 0; level < levels_.size(); ++level) {
    if (levels_[level].waitingSize != 0) {
      TakeBackSeparator(level);
    }
    if (level + 1 == levels_.size()) {
      levels_[level].number = root_;
    }
    child = Write(levels_[level], child);
  }
}

}  // namespace lexmill::platform::sqlite
