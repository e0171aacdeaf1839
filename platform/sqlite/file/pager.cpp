// SPDX-License-Identifier: MIT
#include "platform/sqlite/file/pager.h"

#include <fcntl.h>

#include <cstring>

#include "platform/sqlite/database_error.h"

namespace lexmill::platform::sqlite {
namespace {

std::int64_t BytesOf(PageNumber pages) {
  return std::int64_t{pages} * static_cast<std::int64_t>(kPageSize);
}

std::int64_t SizeOf(const HostFile& file) {
  const auto size = file.Size();
  if (!size) {
    throw HostError();
  }
  return *size;
}

}  // namespace

void Pager::Saved::Save(PageNumber page, const char* bytes) {
  if (Needs(page)) {
    images_.Append(page, bytes);
    isSaved_[page] = true;
  }
}

void Pager::Refresh() {
  cache_.ForgetFrom(1);
  io_.Forget();
  const std::int64_t size = SizeOf(File());
  count_ = static_cast<PageNumber>(size / BytesOf(1));
  tail_.resize(static_cast<std::size_t>(size - BytesOf(count_)));
  if (!File().ReadAt(tail_, BytesOf(count_))) {
    throw HostError();
  }
}

PageRef Pager::Read(PageNumber page) {
  CheckNumber(page);
  return PageRef(Fetch(page));
}

PageRef Pager::ReadTree(PageNumber page) {
  CheckNumber(page);
  Frame& frame = Fetch(page);
  if (!frame.isChecked) {
    CheckTreePage(frame.bytes, order_);
    frame.isChecked = true;
  }
  return PageRef(frame);
}

PageEdit Pager::Edit(PageNumber page) {
  CheckNumber(page);
  Frame& frame = Fetch(page);
  Save(page, frame.bytes);
  frame.isDirty = true;
  frame.isChecked = false;
  return {PageRef(frame), frame.bytes};
}

void Pager::Put(PageNumber page, const char* bytes) {
  const bool isSaved = !journal_->Needs(page) && !(mark_ && mark_->Needs(page));
  if (isSaved && cache_.Find(page) == nullptr) {
    PrepareToWrite();
    io_.Write(page, bytes);
    return;
  }
  std::memcpy(Edit(page).bytes, bytes, kPageSize);
}

PageNumber Pager::Extend() {
  if (count_ == UINT32_MAX) {
    throw DatabaseError(kFull);
  }
  return ++count_;
}

void Pager::Begin() {
  HostFile file = HostFile::Open(JournalPath(), O_RDWR | O_CREAT | O_TRUNC);
  if (!file.IsOpen()) {
    throw DatabaseError(kCannotOpen);
  }
  journal_.emplace(Journal(std::move(file), count_));
  hasWritten_ = false;
}

void Pager::Commit() {
  WriteOut();
  if (hasWritten_ && SizeOf(File()) != BytesOf(count_) && !File().Truncate(BytesOf(count_))) {
    throw HostError();
  }
  // The journal's end is the moment at which the new state holds.
  if (!RemoveFile(JournalPath())) {
    throw HostError();
  }
  EndTransaction();
  tail_.clear();
}

void Pager::Rollback() {
  if (hasWritten_) {
    PlayBack(journal_->Images().File(), File(), order_);
    if (!File().WriteAt(tail_, BytesOf(journal_->Images().PageCount()))) {
      throw HostError();
    }
  }
  RemoveFile(JournalPath());
  EndTransaction();
  Refresh();
}

void Pager::EndTransaction() {
  journal_.reset();
  mark_.reset();
}

void Pager::Mark() {
  mark_.emplace(Journal(path_, count_));
}

void Pager::BackToMark() {
  Journal& images = mark_->Images();
  cache_.ForgetFrom(images.PageCount() + 1);
  count_ = images.PageCount();
  images.Replay([this](PageNumber page, const char* bytes) {
    Frame& frame = Fetch(page);
    std::memcpy(frame.bytes, bytes, kPageSize);
    frame.isDirty = true;
    frame.isChecked = false;
  });
  Unmark();
}

void Pager::CheckNumber(PageNumber page) const {
  if (page == 0 || page > count_) {
    throw DatabaseError(kMalformed);
  }
}

Frame& Pager::Fetch(PageNumber page) {
  if (Frame* frame = cache_.Find(page); frame != nullptr) {
    return *frame;
  }
  Frame& frame = Vacate();
  io_.Read(page, frame.bytes);
  cache_.Assign(frame, page);
  return frame;
}

Frame& Pager::Vacate() {
  Frame* frame = cache_.Vacate();
  if (frame == nullptr && journal_) {
    WriteOut();
    frame = cache_.Vacate();
  }
  if (frame == nullptr) {
    throw DatabaseError("out of memory");
  }
  return *frame;
}

void Pager::Save(PageNumber page, const char* bytes) {
  journal_->Save(page, bytes);
  if (mark_) {
    mark_->Save(page, bytes);
  }
}

void Pager::PrepareToWrite() {
  journal_->Images().Flush();
  hasWritten_ = true;
}

void Pager::WriteOut() {
  const std::vector<Frame*>& dirty = cache_.Dirty();
  if (!dirty.empty()) {
    PrepareToWrite();
  }
  for (Frame* frame : dirty) {
    io_.Write(frame->page, frame->bytes);
    frame->isDirty = false;
  }
  io_.Flush();
}

}  // namespace lexmill::platform::sqlite
