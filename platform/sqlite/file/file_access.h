// SPDX-License-Identifier: MIT
// platform/sqlite/file: A database file among other programs: opening, locks,
// journals of the dead.
#pragma once

#include <optional>
#include <string>

#include "platform/sqlite/file/pager.h"

namespace lexmill::platform::sqlite {

/// An open file, of which pages can be read between Enter and Leave and changed between
/// BeginWriting and Commit or Rollback.
class FileAccess {
 public:
  /// Opens the file, creates it if it is missing, and looks at it unless it is locked.
  /// @throws DatabaseError with the text for a database that can't be opened
  explicit FileAccess(const std::string& path);

  [[nodiscard]] Pager& Pages() { return *pager_; }
  [[nodiscard]] bool CanWrite() const { return canWrite_; }

  /// Takes the shared lock, plays back what a dead writer left, and checks the file's head.
  /// @throws DatabaseError kLocked among others; nothing is held then
  void Enter();
  void Leave();

  /// Takes the write lock and begins a transaction. A file without pages gets its first two.
  /// @throws DatabaseError kLocked, kCannotOpen; the shared lock is kept
  void BeginWriting();
  /// Ends the transaction; what is held falls back to the shared lock. If writing fails, everything
  /// is rolled back before that is thrown.
  void Commit();
  void Rollback();

 private:
  [[nodiscard]] bool TryEnter();
  /// Changes the lock on the file. @return false if another opener is in the way
  [[nodiscard]] bool TryLock(LockKind kind);
  void RecoverJournal();
  void RemoveUselessJournal();

  std::optional<Pager> pager_;
  bool canWrite_ = true;
  bool hasUselessJournal_ = false;  ///< that undoes nothing and couldn't be removed
};

}  // namespace lexmill::platform::sqlite
