// SPDX-License-Identifier: MIT
#include "platform/sqlite/file/file_access.h"

#include <fcntl.h>

#include <cerrno>
#include <tuple>
#include <utility>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/file/file_head.h"
#include "platform/sqlite/file/journal.h"

namespace lexmill::platform::sqlite {

FileAccess::FileAccess(const std::string& path) {
  HostFile file = HostFile::Open(path, O_RDWR | O_CREAT);
  if (!file.IsOpen()) {
    if (errno == EISDIR) {
      throw DatabaseError(kInputOutput);
    }
    canWrite_ = false;
    file = HostFile::Open(path, O_RDONLY);
  }
  if (!file.IsOpen()) {
    throw DatabaseError("unable to open database: " + path);
  }
  lock_.emplace(file.Descriptor());
  pager_.emplace(std::move(file), path);
  if (TryEnter()) {
    Leave();
  }
}

void FileAccess::Enter() {
  if (!TryEnter()) {
    throw DatabaseError(kLocked);
  }
}

void FileAccess::Leave() {
  std::ignore = lock_->Set(LockKind::None);
}

bool FileAccess::TryEnter() {
  if (!lock_->Set(LockKind::Shared)) {
    return false;
  }
  try {
    RecoverJournal();
    pager_->Refresh();
    CheckFileHead(*pager_);
  } catch (const DatabaseError&) {
    Leave();
    throw;
  }
  return true;
}

void FileAccess::RecoverJournal() {
  const HostFile journal = HostFile::Open(pager_->JournalPath(), O_RDONLY);
  if (!journal.IsOpen()) {
    if (errno != ENOENT) {
      throw DatabaseError(kCannotOpen);
    }
    return;
  }
  // A living writer would hold the write lock, and the shared one had not been got.
  const JournalKind kind = KindOf(journal);
  if (kind == JournalKind::Foreign) {
    throw DatabaseError(kMalformed);
  }
  if (!canWrite_) {
    throw DatabaseError(kCannotOpen);
  }
  if (!lock_->Set(LockKind::Exclusive)) {
    throw DatabaseError(kLocked);
  }
  if (kind == JournalKind::Journal) {
    PlayBack(journal, pager_->File(), ByteOrder::Little);
  }
  if (!RemoveFile(pager_->JournalPath())) {
    throw DatabaseError(kCannotOpen);
  }
  std::ignore = lock_->Set(LockKind::Shared);
}

void FileAccess::BeginWriting() {
  if (!lock_->Set(LockKind::Exclusive)) {
    throw DatabaseError(kLocked);
  }
  try {
    pager_->Begin();
    if (pager_->Count() == 0) {
      CreateFileHead(*pager_);
    }
  } catch (const DatabaseError&) {
    std::ignore = lock_->Set(LockKind::Shared);
    throw;
  }
}

void FileAccess::Commit() {
  try {
    pager_->Commit();
  } catch (const DatabaseError&) {
    Rollback();
    throw;
  }
  std::ignore = lock_->Set(LockKind::Shared);
}

void FileAccess::Rollback() {
  pager_->Rollback();
  std::ignore = lock_->Set(LockKind::Shared);
}

}  // namespace lexmill::platform::sqlite
