// SPDX-License-Identifier: MIT
#include "platform/sqlite/tree/page_packer.h"

namespace lexmill::platform::sqlite {

void PagePacker::Clear() {
  used_ = kPageHeadSize;
  last_ = 0;
  Put16(&page_[kFirstCellAt], 0, order_);
}

char* PagePacker::Reserve(std::size_t size) {
  Put16(&page_[last_ == 0 ? kFirstCellAt : last_ + kNextCellAt], used_, order_);
  last_ = used_;
  used_ += size;
  return &page_[last_];
}

void PagePacker::Append(std::string_view cell, PageNumber leftChild) {
  char* at = Reserve(cell.size());
  cell.copy(at, cell.size());
  Put32(at + kLeftChildAt, leftChild, order_);
  Put16(at + kNextCellAt, 0, order_);
}

CellView PagePacker::TakeLast() {
  const std::size_t taken = last_;
  std::size_t before = Get16(&page_[kFirstCellAt], order_);
  while (CellView(&page_[before], order_).Next() != taken) {
    before = CellView(&page_[before], order_).Next();
  }
  Put16(&page_[before + kNextCellAt], 0, order_);
  last_ = before;
  used_ = taken;
  return {&page_[taken], order_};
}

/// The room after the cells becomes one free block, so that the page is covered to its last byte.
/// Cells are multiples of 4, so there is either none or enough for a block's head.
const char* PagePacker::Complete(PageNumber rightChild) {
  Put32(&page_[kRightChildAt], rightChild, order_);
  const bool isFull = used_ == kPageSize;
  Put16(&page_[kFirstFreeAt], isFull ? 0 : used_, order_);
  if (!isFull) {
    Put16(&page_[used_], kPageSize - used_, order_);
    Put16(&page_[used_ + 2], 0, order_);
  }
  return page_.data();
}

}  // namespace lexmill::platform::sqlite
