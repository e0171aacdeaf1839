// SPDX-License-Identifier: MIT

// Opening a file among other programs. Whoever reads pages holds the shared lock, whoever changes
// them the exclusive one, on the whole file; nobody waits for a lock. What was read before is
// forgotten with each new lock, since others may have written in between.
//
// A writer takes the exclusive lock before it makes its journal and gives it back after that is
// gone. So a journal that somebody finds with the shared lock in hand was left by a dead writer,
// and the file is in no state at all: before anything is read, the journal is played back, under
// the exclusive lock. Should two processes find it at the same time, each is in the other's way and
// both say that the database is locked; the next try succeeds.

#include "platform/sqlite/file/file_access.h"

#include <tuple>
#include <utility>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/file/file_head.h"
#include "platform/sqlite/file/journal.h"
#include "platform/text/text.h"

namespace lexmill::platform::sqlite {

FileAccess::FileAccess(const std::string& path) {
  const HostPath hostPath(FromUtf8(path));
  auto file = HostFile::Open(hostPath, OpenMode::ReadWriteCreate);
  if (!file) {
    if (file.Error() == HostError::IsFolder) {
      throw DatabaseError(kInputOutput);
    }
    canWrite_ = false;
    file = HostFile::Open(hostPath, OpenMode::Read);
  }
  if (!file) {
    throw DatabaseError("unable to open database: " + path);
  }
  pager_.emplace(*std::move(file), path);
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
  std::ignore = TryLock(LockKind::None);
}

bool FileAccess::TryLock(LockKind kind) {
  const auto outcome = pager_->File().Lock(kind);
  if (!outcome && outcome.Error() != HostError::InUse) {
    throw DatabaseError(kInputOutput);
  }
  return static_cast<bool>(outcome);
}

bool FileAccess::TryEnter() {
  if (!TryLock(LockKind::Shared)) {
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
  hasUselessJournal_ = false;
  auto journal = HostFile::Open(pager_->JournalPath(), OpenMode::Read);
  if (journal.FailedBy(HostError::NotFound)) {
    return;
  }
  if (!journal) {
    throw DatabaseError(kCannotOpen);
  }
  // A living writer holds the write lock for as long as its journal is there, and then this process
  // would not have got the shared one.
  const JournalKind kind = KindOf(*journal, pager_->File());
  if (kind == JournalKind::Foreign) {
    throw DatabaseError(kMalformed);
  }
  if (kind == JournalKind::Nothing) {
    journal->Close();
    RemoveUselessJournal();
    return;
  }
  if (!canWrite_) {
    throw DatabaseError(kCannotOpen);
  }
  if (!TryLock(LockKind::Exclusive)) {
    throw DatabaseError(kLocked);
  }
  PlayBack(*journal, pager_->File(), ByteOrder::Little);
  journal->Close();
  if (!RemoveFile(pager_->JournalPath())) {
    throw DatabaseError(kCannotOpen);
  }
  std::ignore = TryLock(LockKind::Shared);
}

/// Who may not remove a journal that undoes nothing, as in a read-only folder, can read all the
/// same. A writer can't: at its end the journal would still be there.
void FileAccess::RemoveUselessJournal() {
  const bool mayRemove = canWrite_ && TryLock(LockKind::Exclusive);
  hasUselessJournal_ = !mayRemove || !RemoveFile(pager_->JournalPath());
  std::ignore = TryLock(LockKind::Shared);
}

void FileAccess::BeginWriting() {
  if (!TryLock(LockKind::Exclusive)) {
    throw DatabaseError(kLocked);
  }
  try {
    if (hasUselessJournal_ && !RemoveFile(pager_->JournalPath())) {
      throw DatabaseError(kCannotOpen);
    }
    pager_->Begin();
    if (pager_->Count() == 0) {
      CreateFileHead(*pager_);
    }
  } catch (const DatabaseError&) {
    std::ignore = TryLock(LockKind::Shared);
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
  std::ignore = TryLock(LockKind::Shared);
}

void FileAccess::Rollback() {
  pager_->Rollback();
  std::ignore = TryLock(LockKind::Shared);
}

}  // namespace lexmill::platform::sqlite
