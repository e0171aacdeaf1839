// SPDX-License-Identifier: MIT
// Locks that a user's own shell takes and respects.
#include <fcntl.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/host/host_file.h"
#include "tests/support/files.h"

namespace lexmill::platform {
namespace {

using test::TemporaryFolder;

/// A lock as shells take it: bound to the process, on the whole file.
class LockOfAShell {
 public:
  LockOfAShell(const HostPath& path, short type)
      : descriptor_(open(path.Native().c_str(), O_RDWR)) {
    struct flock whole {};
    whole.l_type = type;
    isHeld_ = fcntl(descriptor_, F_SETLK, &whole) == 0;
  }
  ~LockOfAShell() { close(descriptor_); }
  LockOfAShell(const LockOfAShell&) = delete;
  LockOfAShell& operator=(const LockOfAShell&) = delete;
  [[nodiscard]] bool IsHeld() const { return isHeld_; }

 private:
  int descriptor_;
  bool isHeld_;
};

TEST(HostFile, LocksOutOtherOpenersAndRealShells) {
  const TemporaryFolder folder;
  const HostPath path(folder.File("f"));
  HostFile file = *HostFile::Open(path, OpenMode::ReadWriteCreate);
  HostFile other = *HostFile::Open(path, OpenMode::ReadWrite);
  ASSERT_TRUE(file.Lock(LockKind::Shared) && other.Lock(LockKind::Shared));
  EXPECT_TRUE(file.Lock(LockKind::Exclusive).FailedBy(HostError::InUse));
  EXPECT_TRUE(LockOfAShell(path, F_RDLCK).IsHeld());
  EXPECT_FALSE(LockOfAShell(path, F_WRLCK).IsHeld());
  ASSERT_TRUE(other.Lock(LockKind::None) && file.Lock(LockKind::Exclusive));
  EXPECT_TRUE(other.Lock(LockKind::Shared).FailedBy(HostError::InUse));
  EXPECT_FALSE(LockOfAShell(path, F_RDLCK).IsHeld());
  file.Close();
  const LockOfAShell shell(path, F_WRLCK);
  EXPECT_TRUE(shell.IsHeld());
  EXPECT_TRUE(other.Lock(LockKind::Shared).FailedBy(HostError::InUse));
}

}  // namespace
}  // namespace lexmill::platform
