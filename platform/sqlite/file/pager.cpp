// SPDX-License-Identifier: MIT

// How changes get into the file, and how they can be taken back.
//
// Before a page changes for the first time in a transaction, its old content goes to the journal.
// Before a changed page goes to the file, the journal has gone to the host. So from Begin to Commit
// the old file can be restored, byte for byte: by Rollback, or, if this process dies, by whoever
// opens the file next and finds the journal (FileAccess). A page that the transaction added needs
// no saving, as the file is cut to its old size.
//
// Commit writes the changed pages out and removes the journal. The removal is the commit: as long
// as there is a journal the old state holds, without it the new one. Nothing is forced to the disk,
// for the reason given at Journal::Flush.
//
// A mark works in the same way on a smaller scale. It is a second journal, begun later, in a
// nameless file: the state to go back to is that of Mark, and going back changes pages in memory
// only. A page may be saved in both, in each with the content of its time.
//
// Memory is constant: if all frames are changed, they are written out in the middle of the
// transaction.
//
// Invariants while a transaction is open:
//   - a changed frame's page is in the journal and, if there is a mark, in the mark, unless it was
//     added later than these began;
//   - as long as `hasWritten_` is false, the file is untouched;
//   - what a page holds is in the cache, else in the run of PageIo, else in the file: the first of
//     these that has it is right.

#include "platform/sqlite/file/pager.h"

#include <cstring>

#include "platform/sqlite/database_error.h"
#include "platform/text/text.h"

namespace lexmill::platform::sqlite {
namespace {

std::int64_t BytesOf(PageNumber pages) {
  return std::int64_t{pages} * static_cast<std::int64_t>(kPageSize);
}

}  // namespace

void Pager::Saved::Save(PageNumber page, const char* bytes) {
  if (Needs(page)) {
    images_.Append(page, bytes);
    isSaved_[page] = true;
  }
}

HostPath Pager::JournalPath() const {
  return HostPath(FromUtf8(path_) + u"-journal");
}

void Pager::Refresh() {
  cache_.ForgetFrom(1);
  io_.Forget();
  const std::int64_t size = SizeOf(File());
  count_ = static_cast<PageNumber>(size / BytesOf(1));
  tail_.resize(static_cast<std::size_t>(size - BytesOf(count_)));
  if (const auto got = File().ReadAt(tail_, BytesOf(count_)); !got) {
    throw TransferError(got.Error());
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

/// The old content is saved before the caller gets to change it. What was found in order isn't
/// known to be so afterwards.
PageEdit Pager::Edit(PageNumber page) {
  CheckNumber(page);
  Frame& frame = Fetch(page);
  Save(page, frame.bytes);
  frame.isDirty = true;
  frame.isChecked = false;
  return {PageRef(frame), frame.bytes};
}

/// A builder's pages are new and not looked at soon, so they go past the cache. A page that is in
/// the cache must not: the two would differ.
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
  auto file = HostFile::Open(JournalPath(), OpenMode::ReadWriteReplace);
  if (!file) {
    throw DatabaseError(kCannotOpen);
  }
  journal_.emplace(Journal(*std::move(file), count_));
  hasWritten_ = false;
}

void Pager::Commit() {
  WriteOut();
  if (hasWritten_ && SizeOf(File()) != BytesOf(count_)) {
    ThrowUnless(File().Truncate(BytesOf(count_)));
  }
  // This is the commit: until now the old state would have come back, from now on it can't. Closed
  // first, since a host may keep a file as long as it is open.
  journal_->Images().Close();
  if (const auto removed = RemoveFile(JournalPath()); !removed) {
    journal_->Images().OpenAgain(JournalPath());
    ThrowUnless(removed);
  }
  EndTransaction();
  tail_.clear();
}

void Pager::Rollback() {
  if (hasWritten_) {
    PlayBack(journal_->Images().File(), File(), order_);
    ThrowUnless(File().WriteAt(tail_, BytesOf(journal_->Images().PageCount())));
  }
  EndTransaction();
  RemoveFile(JournalPath());
  Refresh();
}

void Pager::EndTransaction() {
  journal_.reset();
  mark_.reset();
}

void Pager::Mark() {
  mark_.emplace(Journal(path_, count_));
}

/// The old contents become changes of their pages: what the file got meanwhile is written over when
/// they go out. The journal needs nothing, as it saved these pages before the mark did or with it.
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

/// From here on the file differs from what it was, and only the journal knows what it was.
void Pager::PrepareToWrite() {
  journal_->Images().Flush();
  hasWritten_ = true;
}

/// Writes all changed pages, in the order of the file: many of them are neighbours.
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
