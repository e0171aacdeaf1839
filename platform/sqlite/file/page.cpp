// SPDX-License-Identifier: MIT
#include "platform/sqlite/file/page.h"

#include "platform/sqlite/database_error.h"

namespace lexmill::platform::sqlite {
namespace {

/// Adds up what the chains of a page cover; a chain that leaves the page or doesn't end covers too
/// much or has a wild offset.
class PageCheck {
 public:
  PageCheck(const char* page, ByteOrder order) : page_(page), order_(order) {}

  [[nodiscard]] bool IsInOrder() {
    if (Get32(page_, order_) == 0 && Get32(page_ + kFirstCellAt, order_) == 0) {
      return true;  // the other form of an empty tree
    }
    return CellsInOrder() && FreeBlocksInOrder() && covered_ == kPageRoom;
  }

 private:
  [[nodiscard]] bool Cover(std::size_t at, std::size_t size) {
    covered_ += size;
    return at + size <= kPageSize && covered_ <= kPageRoom;
  }

  [[nodiscard]] static bool IsPlace(std::size_t at, std::size_t size) {
    return at % 4 == 0 && at >= kPageHeadSize && at + size <= kPageSize;
  }

  [[nodiscard]] bool CellsInOrder() {
    const bool isLeaf = Get32(page_ + kRightChildAt, order_) == 0;
    std::size_t at = Get16(page_ + kFirstCellAt, order_);
    while (at != 0) {
      if (!IsPlace(at, kCellHeadSize)) {
        return false;
      }
      const CellView cell(page_ + at, order_);
      if (!Cover(at, cell.Size()) || (cell.LeftChild() == 0) != isLeaf) {
        return false;
      }
      at = cell.Next();
    }
    return true;
  }

  [[nodiscard]] bool FreeBlocksInOrder() {
    std::size_t before = 0;
    std::size_t at = Get16(page_ + kFirstFreeAt, order_);
    while (at != 0) {
      if (!IsPlace(at, 4) || at <= before) {
        return false;
      }
      const std::size_t size = Get16(page_ + at, order_);
      if (size < 4 || !Cover(at, size)) {
        return false;
      }
      before = at;
      at = Get16(page_ + at + 2, order_);
    }
    return true;
  }

  const char* page_;
  ByteOrder order_;
  std::size_t covered_ = 0;
};

}  // namespace

void PutCellHead(char* at, PageNumber leftChild, std::size_t keyLength, std::size_t dataLength,
                 ByteOrder order) {
  Put32(at + kLeftChildAt, leftChild, order);
  Put16(at + kKeyLowAt, keyLength, order);
  Put16(at + kNextCellAt, 0, order);
  at[kKeyHighAt] = static_cast<char>(keyLength >> 16U);
  at[kDataHighAt] = static_cast<char>(dataLength >> 16U);
  Put16(at + kDataLowAt, dataLength, order);
}

void PutEmptyTree(char* page, ByteOrder order) {
  std::memset(page, 0, kPageSize);
  Put16(page + kFirstFreeAt, kPageHeadSize, order);
  Put16(page + kPageHeadSize, kPageRoom, order);
}

void CheckTreePage(const char* page, ByteOrder order) {
  if (!PageCheck(page, order).IsInOrder()) {
    throw DatabaseError(kMalformed);
  }
}

}  // namespace lexmill::platform::sqlite
