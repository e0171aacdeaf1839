// SPDX-License-Identifier: MIT

// Puts single entries into a tree, recursively: down to the page that has the key or the leaf where
// it belongs, and on the way back up each page takes in what its child has become. A page is taken
// apart into views of its cells, changed as a list and written as a whole; there are no changes in
// place, so the free room of a page is always in one piece after it.
//
// A page that overflows is split into as many as its cells need, which is two or, rarely,
// three. The cells between the new pages go up as separators. Nothing is ever removed, so pages
// never have to be joined.
//
// Invariants: all leaves stay equally deep, as a tree grows at its root only; the root keeps its
// page; and no page but the root is empty, as every separator has something on both sides.
//
// This is the way for few entries. Many go through TreeBuilder, which writes each page once.

#include "platform/sqlite/tree/tree_editor.h"

#include <algorithm>
#include <tuple>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/file/free_list.h"
#include "platform/sqlite/tree/page_packer.h"
#include "platform/sqlite/tree/payload.h"

namespace lexmill::platform::sqlite {
namespace {

void CheckDepth(std::size_t depth) {
  if (depth >= kGreatestDepth) {
    throw DatabaseError(kMalformed);
  }
}

}  // namespace

TreeEditor::Node::Node(Pager& pager, PageNumber number) {
  const PageRef ref = pager.ReadTree(number);
  std::copy_n(ref.Bytes(), kPageSize, page.data());
  const ByteOrder order = pager.Order();
  right = Get32(&page[kRightChildAt], order);
  for (std::size_t at = Get16(&page[kFirstCellAt], order); at != 0;) {
    const CellView cell(&page[at], order);
    cells.push_back({cell.LeftChild(), {cell.Bytes(), cell.Size()}});
    at = cell.Next();
  }
}

std::size_t TreeEditor::Node::Size() const {
  std::size_t size = 0;
  for (const Cell& cell : cells) {
    size += cell.bytes.size();
  }
  return size;
}

void TreeEditor::Node::Insert(std::size_t index, PageNumber left, std::string bytes) {
  const std::string& own = kept.emplace_back(std::move(bytes));
  cells.insert(cells.begin() + static_cast<std::ptrdiff_t>(index), {left, own});
}

void TreeEditor::Put(std::string_view key, std::string_view data) {
  std::array<char, kGreatestCell> cell{};
  PutCell(pager_, cell.data(), key, data);
  cell_ = {cell.data(), CellSize(key.size() + data.size())};
  Node root(pager_, root_);
  if (PutHere(root, key, 0)) {
    StoreRoot(root);
  }
}

std::pair<std::size_t, bool> TreeEditor::Find(const Node& node, std::string_view key) {
  for (std::size_t i = 0; i < node.cells.size(); ++i) {
    const int order = CompareKey(pager_, View(node.cells[i]), key, buffer_);
    if (order >= 0) {
      return {i, order == 0};
    }
  }
  return {node.cells.size(), false};
}

/// Puts the entry into the node or below it.
bool TreeEditor::PutHere(Node& node, std::string_view key, std::size_t depth) {
  const auto [index, isEqual] = Find(node, key);
  if (isEqual) {
    FreeOverflow(pager_, View(node.cells[index]));
    node.cells[index].bytes = cell_;
    return true;
  }
  if (node.IsLeaf()) {
    node.Insert(index, 0, std::string(cell_));
    return true;
  }
  return Splice(node, index, PutBelow(node.Child(index), key, depth + 1));
}

TreeEditor::Pieces TreeEditor::PutBelow(PageNumber page, std::string_view key, std::size_t depth) {
  CheckDepth(depth);
  Node node(pager_, page);
  return PutHere(node, key, depth) ? Store(node, page) : Pieces{page};
}

/// Puts what a child has become in the child's place.
bool TreeEditor::Splice(Node& node, std::size_t child, const Pieces& pieces) {
  PageNumber left = pieces.first;
  std::size_t at = child;
  for (const auto& [separator, page] : pieces.others) {
    node.Insert(at, left, separator);
    left = page;
    ++at;
  }
  node.Child(at) = left;
  return !pieces.others.empty();
}

TreeEditor::Pieces TreeEditor::Store(const Node& node, PageNumber page) {
  if (node.Size() > kPageRoom) {
    return Split(node, page);
  }
  Write(node, 0, node.cells.size(), node.right, page);
  return {page};
}

/// Shares a node out over its page and new ones.
TreeEditor::Pieces TreeEditor::Split(const Node& node, PageNumber first) {
  Pieces pieces{first};
  PageNumber page = first;
  std::size_t begin = 0;
  for (const std::size_t separator : Separators(node)) {
    Write(node, begin, separator, node.cells[separator].left, page);
    page = AllocatePage(pager_);
    pieces.others.emplace_back(node.cells[separator].bytes, page);
    begin = separator + 1;
  }
  Write(node, begin, node.cells.size(), node.right, page);
  return pieces;
}

std::vector<std::size_t> TreeEditor::Separators(const Node& node) {
  const std::vector<Cell>& cells = node.cells;
  const std::size_t size = node.Size();
  const std::size_t pages = (size + kPageRoom - 1) / kPageRoom;
  const std::size_t share = (size + pages - 1) / pages;  // of each page, if cells were sand
  std::vector<std::size_t> separators;
  std::size_t filled = 0;
  // The last cell of all never separates: something has to follow a separator.
  for (std::size_t i = 0; i + 1 < cells.size(); ++i) {
    const std::size_t more = filled + cells[i].bytes.size();
    const bool isLastChance = i + 2 == cells.size() && more + cells[i + 1].bytes.size() > kPageRoom;
    if (filled >= share || more > kPageRoom || isLastChance) {
      separators.push_back(i);
      filled = 0;
    } else {
      filled = more;
    }
  }
  return separators;
}

/// Stores the root, which keeps its page: if it overflows, its content moves one level down.
void TreeEditor::StoreRoot(Node& node) {
  if (node.Size() > kPageRoom) {
    const Pieces pieces = Split(node, AllocatePage(pager_));
    node.cells.clear();
    node.right = 0;
    std::ignore = Splice(node, 0, pieces);
  }
  Write(node, 0, node.cells.size(), node.right, root_);
}

void TreeEditor::Write(const Node& node, std::size_t begin, std::size_t end, PageNumber right,
                       PageNumber page) {
  PagePacker packer(pager_.Order());
  for (std::size_t i = begin; i < end; ++i) {
    packer.Append(node.cells[i].bytes, node.cells[i].left);
  }
  pager_.Put(page, packer.Complete(right));
}

}  // namespace lexmill::platform::sqlite
