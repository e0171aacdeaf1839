// SPDX-License-Identifier: MIT
#include "platform/host/win32/error.h"

#include "platform/host/win32/windows_api.h"

namespace lexmill::platform::system {
namespace {

constexpr DWORD kQuotaExceeded = 1295;  // the compiler's headers lack its name

}  // namespace

HostError HostErrorOf(std::uint32_t error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_NO_NET_OR_BAD_PATH:
      return HostError::NotFound;
    case ERROR_DIRECTORY:
    case ERROR_CANT_RESOLVE_FILENAME:
      return HostError::NoFolder;
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_INVALID_PARAMETER:
      return HostError::BadName;
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
    case ERROR_NETWORK_ACCESS_DENIED:
    case ERROR_PRIVILEGE_NOT_HELD:
      return HostError::Denied;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_BUSY:
    case ERROR_DELETE_PENDING:
    case ERROR_USER_MAPPED_FILE:
      return HostError::InUse;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return HostError::Exists;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
    case ERROR_COMMITMENT_LIMIT:
    case ERROR_NO_SYSTEM_RESOURCES:
      return HostError::OutOfMemory;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case kQuotaExceeded:
    case ERROR_FILE_TOO_LARGE:
      return HostError::Full;
    default:
      return HostError::Device;
  }
}

HostError LastError() {
  return HostErrorOf(GetLastError());
}

}  // namespace lexmill::platform::system
