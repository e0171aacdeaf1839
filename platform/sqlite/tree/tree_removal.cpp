// SPDX-License-Identifier: MIT
#include "platform/sqlite/tree/tree_removal.h"

#include <vector>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/file/free_list.h"
#include "platform/sqlite/tree/payload.h"

namespace lexmill::platform::sqlite {
namespace {

class TreeRemoval {
 public:
  TreeRemoval(Pager& pager, Overflow overflow) : pager_(pager), overflow_(overflow) {}

  void Below(PageNumber page, std::size_t depth) {
    if (depth == kGreatestDepth || ++visited_ > pager_.Count()) {
      throw DatabaseError(kMalformed);
    }
    const std::vector<PageNumber> children = LeavePage(page);
    // All leaves are equally deep, so the first child shows whether the others have to be read.
    const bool areLeaves =
        !children.empty() && Get32(pager_.ReadTree(children.front()).Bytes(), pager_.Order()) == 0;
    for (const PageNumber child : children) {
      if (!areLeaves || overflow_ == Overflow::Freed) {
        Below(child, depth + 1);
      }
      FreePage(pager_, child);
    }
  }

 private:
  /// Frees the overflow pages of a page's cells. @return its children
  std::vector<PageNumber> LeavePage(PageNumber page) {
    const PageRef ref = pager_.ReadTree(page);
    const PageNumber right = Get32(ref.Bytes() + kRightChildAt, pager_.Order());
    std::vector<PageNumber> children;
    for (std::size_t at = Get16(ref.Bytes() + kFirstCellAt, pager_.Order()); at != 0;) {
      const CellView cell(ref.Bytes() + at, pager_.Order());
      if (overflow_ == Overflow::Freed) {
        FreeOverflow(pager_, cell);
      }
      if (right != 0) {
        children.push_back(cell.LeftChild());
      }
      at = cell.Next();
    }
    if (right != 0) {
      children.push_back(right);
    }
    return children;
  }

  Pager& pager_;
  Overflow overflow_;
  std::size_t visited_ = 0;
};

}  // namespace

void FreeTreeBelow(Pager& pager, PageNumber root, Overflow overflow) {
  TreeRemoval(pager, overflow).Below(root, 0);
}

}  // namespace lexmill::platform::sqlite
