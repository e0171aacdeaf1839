// SPDX-License-Identifier: MIT

// Pages that nobody uses are named by other such pages: the head names a trunk, a trunk the next
// trunk and up to 254 leaves. Nothing is known of a leaf's content, so freeing one writes to its
// trunk only, and the leaf is not even read.
//
// The list comes from a file that may be damaged, so what it gives out is checked: a page of the
// file, not the head nor the master table's root. That a page is both free and in use can't be seen
// here.

#include "platform/sqlite/file/free_list.h"

#include <cstring>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/file/file_head.h"

namespace lexmill::platform::sqlite {
namespace {

// A trunk page names the next trunk, the number of its leaves, and the leaves.
constexpr std::size_t kNextTrunkAt = 0;
constexpr std::size_t kLeafCountAt = 4;
constexpr std::size_t kLeavesAt = 8;
constexpr std::uint32_t kGreatestLeafCount = (kPageSize - kLeavesAt) / 4;

std::uint32_t LeafCount(const char* trunk, ByteOrder order) {
  const std::uint32_t count = Get32(trunk + kLeafCountAt, order);
  if (count > kGreatestLeafCount) {
    throw DatabaseError(kMalformed);
  }
  return count;
}

/// Header and tree of the master table can't be free.
void CheckCanBeFree(PageNumber page) {
  if (page <= kMasterRoot) {
    throw DatabaseError(kMalformed);
  }
}

void AddToFreeCount(char* head, std::uint32_t difference, ByteOrder order) {
  Put32(head + kFreeCountAt, Get32(head + kFreeCountAt, order) + difference, order);
}

/// The first leaf of a trunk, taken out of it, so that pages freed in rising order are used in
/// rising order; the trunk itself when it has none.
PageNumber TakeFrom(Pager& pager, PageNumber trunk, char* head) {
  const ByteOrder order = pager.Order();
  const PageEdit edit = pager.Edit(trunk);
  const std::uint32_t leaves = LeafCount(edit.bytes, order);
  if (leaves == 0) {
    Put32(head + kFirstTrunkAt, Get32(edit.bytes + kNextTrunkAt, order), order);
    return trunk;
  }
  char* first = edit.bytes + kLeavesAt;
  const PageNumber leaf = Get32(first, order);
  std::memmove(first, first + 4, (leaves - 1) * std::size_t{4});
  Put32(edit.bytes + kLeafCountAt, leaves - 1, order);
  return leaf;
}

}  // namespace

PageNumber AllocatePage(Pager& pager) {
  const ByteOrder order = pager.Order();
  const PageNumber trunk = Get32(pager.Read(kHeadPage).Bytes() + kFirstTrunkAt, order);
  if (trunk == 0) {
    return pager.Extend();
  }
  CheckCanBeFree(trunk);
  const PageEdit head = pager.Edit(kHeadPage);
  const PageNumber page = TakeFrom(pager, trunk, head.bytes);
  CheckCanBeFree(page);
  if (page > pager.Count() || Get32(head.bytes + kFreeCountAt, order) == 0) {
    throw DatabaseError(kMalformed);
  }
  AddToFreeCount(head.bytes, static_cast<std::uint32_t>(-1), order);
  return page;
}

void FreePage(Pager& pager, PageNumber page) {
  CheckCanBeFree(page);
  const ByteOrder order = pager.Order();
  const PageEdit head = pager.Edit(kHeadPage);
  AddToFreeCount(head.bytes, 1, order);
  const PageNumber trunk = Get32(head.bytes + kFirstTrunkAt, order);
  if (trunk != 0) {
    const std::uint32_t leaves = LeafCount(pager.Read(trunk).Bytes(), order);
    if (leaves < kGreatestLeafCount) {
      const PageEdit edit = pager.Edit(trunk);
      Put32(edit.bytes + kLeavesAt + leaves * std::size_t{4}, page, order);
      Put32(edit.bytes + kLeafCountAt, leaves + 1, order);
      return;
    }
  }
  const PageEdit edit = pager.Edit(page);
  Put32(edit.bytes + kNextTrunkAt, trunk, order);
  Put32(edit.bytes + kLeafCountAt, 0, order);
  Put32(head.bytes + kFirstTrunkAt, page, order);
}

}  // namespace lexmill::platform::sqlite
