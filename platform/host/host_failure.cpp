// SPDX-License-Identifier: MIT
#include "platform/host/host_failure.h"

#include <cerrno>

#include "platform/host/host_file.h"
#include "platform/host/host_path.h"

namespace lexmill::platform {
namespace {

FailureNumber TransferNumber(int error) {
  const bool isFull = error == ENOSPC || error == EDQUOT || error == EFBIG;
  return isFull ? FailureNumber::DiskFull : FailureNumber::DeviceError;
}

bool HasFolder(const std::string& path) {
  const auto end = path.find_last_not_of('/');
  const auto separator = path.rfind('/', end);
  if (separator == std::string::npos) {
    return true;
  }
  const auto folder = StatusOf(path.substr(0, separator + 1));
  return folder && folder->kind == FileKind::Folder;
}

FailureNumber FileNumber(int error, const std::string& path) {
  switch (error) {
    case ENOENT:
      return HasFolder(path) ? FailureNumber::FileNotFound : FailureNumber::PathNotFound;
    case ENOTDIR:
    case ELOOP:
      return FailureNumber::PathNotFound;
    case ENAMETOOLONG:
    case EINVAL:
    case EILSEQ:
      return FailureNumber::BadFileName;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case EBUSY:
    case ETXTBSY:
      return FailureNumber::PermissionDenied;
    case EEXIST:
      return FailureNumber::FileAlreadyExists;
    case ENOMEM:
      return FailureNumber::OutOfMemory;
    default:
      return TransferNumber(error);
  }
}

}  // namespace

Failure FileFailure(int error, const std::string& path) {
  return {FileNumber(error, path), FailureOrigin::ScriptLibrary, FromHostPath(path)};
}

Failure BinaryFileFailure(int error, const std::string& path) {
  const FailureNumber number = FileNumber(error, path);
  const bool isDenied = number == FailureNumber::PermissionDenied;
  return {isDenied ? FailureNumber::PathFileAccess : number, FailureOrigin::Runtime,
          FromHostPath(path)};
}

Failure TransferFailure(int error) {
  return {TransferNumber(error), FailureOrigin::ScriptLibrary};
}

}  // namespace lexmill::platform
