// SPDX-License-Identifier: MIT
#include "platform/sqlite/file/file_head.h"

#include <cstring>

#include "platform/sqlite/database_error.h"

namespace lexmill::platform::sqlite {
namespace {

constexpr std::uint32_t kMagicNumber = 0xDAE37528;

ByteOrder OrderOf(const char* head) {
  for (const ByteOrder order : {ByteOrder::Little, ByteOrder::Big}) {
    if (Get32(head + kMagicNumberAt, order) == kMagicNumber) {
      return order;
    }
  }
  throw DatabaseError(kNotADatabase);
}

}  // namespace

void CheckFileHead(Pager& pager) {
  if (pager.Count() == 0) {
    pager.Order(detail::kNativeOrder);
    return;
  }
  const PageRef head = pager.Read(kHeadPage);
  // The closing NUL belongs to the magic.
  if (std::memcmp(head.Bytes(), kFileMagic.data(), kFileMagic.size() + 1) != 0) {
    throw DatabaseError(kNotADatabase);
  }
  pager.Order(OrderOf(head.Bytes()));
  if (FileFormat(pager) > kPresentFormat) {
    throw DatabaseError(kUnsupportedFormat);
  }
}

void CreateFileHead(Pager& pager) {
  const PageEdit head = pager.Edit(pager.Extend());
  std::memset(head.bytes, 0, kPageSize);
  kFileMagic.copy(head.bytes, kFileMagic.size());
  Put32(head.bytes + kMagicNumberAt, kMagicNumber, pager.Order());
  PutEmptyTree(pager.Edit(pager.Extend()).bytes, pager.Order());
}

std::uint32_t FileFormat(Pager& pager) {
  return pager.Count() == 0 ? 0 : Get32(pager.Read(kHeadPage).Bytes() + kFormatAt, pager.Order());
}

void NoteSchemaChange(Pager& pager) {
  const PageEdit head = pager.Edit(kHeadPage);
  const std::uint32_t cookie = Get32(head.bytes + kCookieAt, pager.Order());
  Put32(head.bytes + kCookieAt, cookie + 1, pager.Order());
  Put32(head.bytes + kFormatAt, kPresentFormat, pager.Order());
}

}  // namespace lexmill::platform::sqlite
