// SPDX-License-Identifier: MIT
#include "platform/host/posix/error.h"

#include <cerrno>

namespace lexmill::platform::system {

HostError HostErrorOf(int error) {
  switch (error) {
    case ENOENT:
      return HostError::NotFound;
    case ENOTDIR:
    case ELOOP:
      return HostError::NoFolder;
    case ENAMETOOLONG:
    case EINVAL:
    case EILSEQ:
      return HostError::BadName;
    case EACCES:
    case EPERM:
    case EROFS:
      return HostError::Denied;
    case EISDIR:
      return HostError::IsFolder;
    case EBUSY:
    case ETXTBSY:
    case EAGAIN:  // a lock that somebody else has
      return HostError::InUse;
    case EEXIST:
      return HostError::Exists;
    case ENOMEM:
      return HostError::OutOfMemory;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return HostError::Full;
    default:
      return HostError::Device;
  }
}

HostError LastError() {
  return HostErrorOf(errno);
}

}  // namespace lexmill::platform::system
