// SPDX-License-Identifier: MIT
// platform/sqlite/tree: changing single entries of a tree.
#pragma once

#include <array>
#include <cstddef>
#include <list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/sqlite/file/page.h"
#include "platform/sqlite/file/pager.h"

namespace lexmill::platform::sqlite {

/// Adds and replaces entries where they are. A page that overflows is split; the root keeps its
/// number. Damage throws kMalformed.
class TreeEditor {
 public:
  TreeEditor(Pager& pager, PageNumber root) : pager_(pager), root_(root) {}

  /// Adds an entry, or gives the one with this key other data.
  void Put(std::string_view key, std::string_view data);

 private:
  struct Cell {
    PageNumber left = 0;
    std::string_view bytes;  ///< the whole cell; the left child in it is out of date
  };

  /// A page taken apart: its cells, and the child after the last.
  struct Node {
    Node(Pager& pager, PageNumber number);
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;

    [[nodiscard]] bool IsLeaf() const { return right == 0; }
    [[nodiscard]] std::size_t Size() const;
    [[nodiscard]] PageNumber& Child(std::size_t index) {
      return index < cells.size() ? cells[index].left : right;
    }
    void Insert(std::size_t index, PageNumber left, std::string bytes);

    std::vector<Cell> cells;
    PageNumber right = 0;  ///< 0 on a leaf
    std::array<char, kPageSize> page{};
    std::list<std::string> kept;  ///< bytes of cells that came from elsewhere
  };

  /// What a page has become: itself, or several pages with the cells between them.
  struct Pieces {
    PageNumber first = 0;
    std::vector<std::pair<std::string, PageNumber>> others = {};  ///< a cell, and the page after it
  };

  /// The first cell not less than `key`, and whether it is equal.
  [[nodiscard]] std::pair<std::size_t, bool> Find(const Node& node, std::string_view key);

  // What returns bool says whether the node has been changed and has to be stored.
  [[nodiscard]] bool PutHere(Node& node, std::string_view key, std::size_t depth);
  [[nodiscard]] Pieces PutBelow(PageNumber page, std::string_view key, std::size_t depth);
  [[nodiscard]] static bool Splice(Node& node, std::size_t child, const Pieces& pieces);

  [[nodiscard]] Pieces Store(const Node& node, PageNumber page);
  [[nodiscard]] Pieces Split(const Node& node, PageNumber first);
  /// The cells between the pages over which the node's cells are shared out evenly.
  [[nodiscard]] static std::vector<std::size_t> Separators(const Node& node);
  void StoreRoot(Node& node);
  void Write(const Node& node, std::size_t begin, std::size_t end, PageNumber right,
             PageNumber page);
  [[nodiscard]] CellView View(const Cell& cell) const {
    return {cell.bytes.data(), pager_.Order()};
  }

  Pager& pager_;
  PageNumber root_;
  std::string_view cell_;  ///< the cell to be put
  std::string buffer_;
};

}  // namespace lexmill::platform::sqlite
