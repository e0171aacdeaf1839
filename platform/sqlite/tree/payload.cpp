// SPDX-License-Identifier: MIT

// Key and data of an entry are one string, the payload. Its first 236 bytes are in the cell; the
// rest goes to a chain of overflow pages, each with the number of the next in front. A chain
// belongs to one cell, and moves with the cell when that goes to another page.

#include "platform/sqlite/tree/payload.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/file/free_list.h"

namespace lexmill::platform::sqlite {
namespace {

/// Writes `rest` to a chain of new pages. @return its first page
PageNumber PutOverflow(Pager& pager, std::string_view rest) {
  const PageNumber first = AllocatePage(pager);
  std::array<char, kPageSize> bytes{};
  for (PageNumber page = first; page != 0;) {
    const std::string_view part = rest.substr(0, kOverflowRoom);
    rest.remove_prefix(part.size());
    const PageNumber next = rest.empty() ? 0 : AllocatePage(pager);
    Put32(bytes.data(), next, pager.Order());
    part.copy(bytes.data() + kOverflowHead, part.size());
    pager.Put(page, bytes.data());
    page = next;
  }
  return first;
}

/// A payload can't be longer than all pages together; a damaged length must not fill the memory.
void CheckLength(const Pager& pager, std::size_t length) {
  if (length > std::size_t{pager.Count()} * kPageSize) {
    throw DatabaseError(kMalformed);
  }
}

}  // namespace

std::string_view ReadPayload(Pager& pager, CellView cell, std::string& buffer) {
  const std::size_t length = cell.PayloadLength();
  if (length <= kLocalPayload) {
    return {cell.Payload(), length};
  }
  CheckLength(pager, length);
  buffer.assign(cell.Payload(), kLocalPayload);
  for (PageNumber page = cell.FirstOverflow(); buffer.size() < length;) {
    const PageRef part = pager.Read(page);
    const std::size_t size = std::min(kOverflowRoom, length - buffer.size());
    buffer.append(part.Bytes() + kOverflowHead, size);
    page = Get32(part.Bytes(), pager.Order());
  }
  return buffer;
}

/// Most keys differ in what the cell holds; overflow pages are read only if they don't.
int CompareKey(Pager& pager, CellView cell, std::string_view key, std::string& buffer) {
  const std::size_t length = cell.KeyLength();
  const std::size_t local = std::min(length, kLocalPayload);
  const int order = std::memcmp(cell.Payload(), key.data(), std::min(local, key.size()));
  if (order != 0) {
    return order;
  }
  if (length <= kLocalPayload || key.size() <= local) {
    return length < key.size() ? -1 : length > key.size() ? 1 : 0;
  }
  return ReadPayload(pager, cell, buffer).substr(0, length).compare(key);
}

void PutCell(Pager& pager, char* at, std::string_view key, std::string_view data) {
  PutCellHead(at, 0, key.size(), data.size(), pager.Order());
  char* payload = at + kCellHeadSize;
  if (key.size() + data.size() <= kLocalPayload) {
    key.copy(payload, key.size());
    data.copy(payload + key.size(), data.size());
    return;
  }
  std::string whole(key);
  whole += data;
  whole.copy(payload, kLocalPayload);
  const PageNumber first = PutOverflow(pager, std::string_view(whole).substr(kLocalPayload));
  Put32(at + kOverflowLinkAt, first, pager.Order());
}

/// The length decides how many pages there are, not the chain, whose end might be missing.
void FreeOverflow(Pager& pager, CellView cell) {
  if (!cell.HasOverflow()) {
    return;
  }
  const std::size_t rest = cell.PayloadLength() - kLocalPayload;
  CheckLength(pager, rest);
  PageNumber page = cell.FirstOverflow();
  for (std::size_t left = (rest + kOverflowRoom - 1) / kOverflowRoom; left > 0; --left) {
    const PageNumber next = Get32(pager.Read(page).Bytes(), pager.Order());
    FreePage(pager, page);
    page = next;
  }
}

}  // namespace lexmill::platform::sqlite
