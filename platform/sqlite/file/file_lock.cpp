// SPDX-License-Identifier: MIT
#include "platform/sqlite/file/file_lock.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "platform/sqlite/database_error.h"

namespace lexmill::platform::sqlite {
namespace {

short HostKind(LockKind kind) {
  switch (kind) {
    case LockKind::Shared:
      return F_RDLCK;
    case LockKind::Exclusive:
      return F_WRLCK;
    case LockKind::None:
      break;
  }
  return F_UNLCK;
}

}  // namespace

bool FileLock::Set(LockKind kind) {
  if (kind == kind_) {
    return true;
  }
  // Bound to the open file and not to the process, yet in the way of the process-bound locks that
  // other shells take.
  struct flock whole {};
  whole.l_type = HostKind(kind);
  whole.l_whence = SEEK_SET;
  if (fcntl(descriptor_, F_OFD_SETLK, &whole) < 0) {
    if (errno == EAGAIN || errno == EACCES) {
      return false;
    }
    throw DatabaseError(kInputOutput);
  }
  kind_ = kind;
  return true;
}

}  // namespace lexmill::platform::sqlite
