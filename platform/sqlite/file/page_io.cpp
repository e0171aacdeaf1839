// SPDX-License-Identifier: MIT

// Between the pages and the file: `run_`, neighbours waiting to be written together, and `ahead_`,
// pages read before they are asked for. A page in the run is newer than the one read ahead and the
// one in the file; so Read looks there first, and Flush keeps `ahead_` from being older than the
// file. A run doesn't go on into the next block of kRunPages: the system takes whole blocks with
// half the work of the same bytes across their borders.

#include "platform/sqlite/file/page_io.h"

#include <cstring>
#include <span>
#include <tuple>

#include "platform/sqlite/database_error.h"

namespace lexmill::platform::sqlite {
namespace {

std::int64_t OffsetOf(PageNumber page) {
  return (std::int64_t{page} - 1) * static_cast<std::int64_t>(kPageSize);
}

/// Reads full pages from `page` on; zeros after the end of the file.
void ReadPages(const HostFile& file, PageNumber page, std::span<char> bytes) {
  const auto got = file.ReadAt(bytes, OffsetOf(page));
  if (!got) {
    throw TransferError(got.Error());
  }
  std::memset(bytes.data() + *got, 0, bytes.size() - *got);
}

PageNumber PagesIn(const std::string& pages) {
  return static_cast<PageNumber>(pages.size() / kPageSize);
}

}  // namespace

std::int64_t SizeOf(const HostFile& file) {
  const auto size = file.Size();
  if (!size) {
    throw TransferError(size.Error());
  }
  return *size;
}

void PageIo::Read(PageNumber page, char* bytes) {
  if (TakeFrom(run_, runFirst_, page, bytes) || TakeFrom(ahead_, aheadFirst_, page, bytes)) {
    return;
  }
  // The leaves of a tree that was built from left to right follow one another, but for a page above
  // them here and there.
  constexpr PageNumber kGap = 4;
  if (page > lastMissed_ && page - lastMissed_ <= kGap) {
    ReadAhead(page);
    std::ignore = TakeFrom(ahead_, aheadFirst_, page, bytes);
    return;
  }
  ReadPages(file_, page, {bytes, kPageSize});
  lastMissed_ = page;
}

bool PageIo::TakeFrom(const std::string& pages, PageNumber first, PageNumber page,
                      char* bytes) const {
  if (page < first || page - first >= PagesIn(pages)) {
    return false;
  }
  std::memcpy(bytes, pages.data() + (page - first) * kPageSize, kPageSize);
  return true;
}

void PageIo::ReadAhead(PageNumber page) {
  ahead_.resize(kAheadPages * kPageSize);
  aheadFirst_ = page;
  ReadPages(file_, page, ahead_);
  lastMissed_ = page + static_cast<PageNumber>(kAheadPages) - 1;
}

void PageIo::Write(PageNumber page, const char* bytes) {
  const PageNumber pages = PagesIn(run_);
  if (page >= runFirst_ && page - runFirst_ < pages) {
    std::memcpy(run_.data() + (page - runFirst_) * kPageSize, bytes, kPageSize);
    return;
  }
  const bool isBlockStart = (page - 1) % kRunPages == 0;
  if (page != runFirst_ + pages || isBlockStart) {
    Flush();
    runFirst_ = page;
    run_.reserve(kRunPages * kPageSize);
  }
  run_.append(bytes, kPageSize);
}

/// What has been read ahead is dropped if the pages written are among it.
void PageIo::Flush() {
  if (run_.empty()) {
    return;
  }
  ThrowUnless(file_.WriteAt(run_, OffsetOf(runFirst_)));
  const bool isApart =
      runFirst_ + PagesIn(run_) <= aheadFirst_ || aheadFirst_ + PagesIn(ahead_) <= runFirst_;
  if (!isApart) {
    ahead_.clear();
  }
  run_.clear();
}

void PageIo::Forget() {
  run_.clear();
  ahead_.clear();
  lastMissed_ = 0;
}

}  // namespace lexmill::platform::sqlite
