// SPDX-License-Identifier: MIT
// tests/support: the locks that a user's own shell of the database's format takes and respects.
#pragma once

#include "platform/host/host_file.h"

namespace lexmill::test {

/// A lock on the file at `path` as shells take it on this system, held for this object's life.
class LockOfAShell {
 public:
  LockOfAShell(const platform::HostPath& path, platform::LockKind kind);
  /// False if somebody else's lock has refused it.
  [[nodiscard]] bool IsHeld() const { return isHeld_; }

 private:
  platform::HostFile file_;
  bool isHeld_;
};

}  // namespace lexmill::test
