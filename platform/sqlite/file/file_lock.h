// SPDX-License-Identifier: MIT
// platform/sqlite/file: The lock on a database file.
#pragma once

namespace lexmill::platform::sqlite {

enum class LockKind { None, Shared, Exclusive };

/// A lock on a whole open file, against other openers of it; never waits. Goes with the file.
class FileLock {
 public:
  /// @param descriptor  of a file that outlives the lock
  explicit FileLock(int descriptor) : descriptor_(descriptor) {}

  [[nodiscard]] LockKind Kind() const { return kind_; }
  /// Changes to `kind`. @return false if another opener is in the way: the lock is as before
  [[nodiscard]] bool Set(LockKind kind);

 private:
  int descriptor_;
  LockKind kind_ = LockKind::None;
};

}  // namespace lexmill::platform::sqlite
