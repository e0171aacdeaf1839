// SPDX-License-Identifier: MIT
// A shell's lock is bound to the process and on the whole file.
#include "tests/support/shell_lock.h"

#include <fcntl.h>

#include "platform/host/posix/descriptor.h"

namespace lexmill::test {

LockOfAShell::LockOfAShell(const platform::HostPath& path, platform::LockKind kind)
    : file_(*platform::HostFile::Open(path, platform::OpenMode::ReadWrite)) {
  struct flock whole {};
  whole.l_type = kind == platform::LockKind::Exclusive ? F_WRLCK : F_RDLCK;
  isHeld_ = fcntl(platform::system::DescriptorOf(file_.Handle()), F_SETLK, &whole) == 0;
}

}  // namespace lexmill::test
