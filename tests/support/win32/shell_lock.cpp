// SPDX-License-Identifier: MIT
// A shell's lock is on bytes far beyond the content.
#include "tests/support/shell_lock.h"

#include "platform/host/win32/handle.h"

namespace lexmill::test {

LockOfAShell::LockOfAShell(const platform::HostPath& path, platform::LockKind kind)
    : file_(*platform::HostFile::Open(path, platform::OpenMode::ReadWrite)) {
  OVERLAPPED place = {};
  place.Offset = 4294957057U;
  const DWORD exclusive = kind == platform::LockKind::Exclusive ? LOCKFILE_EXCLUSIVE_LOCK : 0;
  isHeld_ = LockFileEx(platform::system::HandleOf(file_.Handle()),
                       LOCKFILE_FAIL_IMMEDIATELY | exclusive, 0, 10239, 0, &place) != 0;
}

}  // namespace lexmill::test
