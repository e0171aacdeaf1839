// SPDX-License-Identifier: MIT
#include "tests/support/shell_lock.h"

#include <gtest/gtest.h>

#include "platform/host/host_file.h"
#include "tests/support/files.h"

namespace lexmill::platform {
namespace {

using test::LockOfAShell;
using test::TemporaryFolder;

TEST(HostFile, LocksOutOtherOpenersAndRealShells) {
  const TemporaryFolder folder;
  const HostPath path(folder.File("f"));
  HostFile file = *HostFile::Open(path, OpenMode::ReadWriteCreate);
  HostFile other = *HostFile::Open(path, OpenMode::ReadWrite);
  ASSERT_TRUE(file.Lock(LockKind::Shared) && other.Lock(LockKind::Shared));
  EXPECT_TRUE(file.Lock(LockKind::Exclusive).FailedBy(HostError::InUse));
  EXPECT_TRUE(LockOfAShell(path, LockKind::Shared).IsHeld());
  EXPECT_FALSE(LockOfAShell(path, LockKind::Exclusive).IsHeld());
  ASSERT_TRUE(other.Lock(LockKind::None) && file.Lock(LockKind::Exclusive));
  EXPECT_TRUE(other.Lock(LockKind::Shared).FailedBy(HostError::InUse));
  EXPECT_FALSE(LockOfAShell(path, LockKind::Shared).IsHeld());
  file.Close();
  const LockOfAShell shell(path, LockKind::Exclusive);
  EXPECT_TRUE(shell.IsHeld());
  EXPECT_TRUE(other.Lock(LockKind::Shared).FailedBy(HostError::InUse));
}

}  // namespace
}  // namespace lexmill::platform
