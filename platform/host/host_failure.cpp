// SPDX-License-Identifier: MIT
#include "platform/host/host_failure.h"

#include "platform/host/host_file.h"

namespace lexmill::platform {
namespace {

FailureNumber TransferNumber(HostError error) {
  return error == HostError::Full ? FailureNumber::DiskFull : FailureNumber::DeviceError;
}

/// The platform distinguishes a missing file from a missing folder; some hosts have one error for
/// both.
bool HasFolder(std::u16string_view path) {
  const auto end = path.find_last_not_of(kPathSeparators);
  const std::u16string_view name = path.substr(0, end == path.npos ? 0 : end + 1);
  const std::u16string_view folder = FolderPart(name);
  if (folder.empty()) {
    return true;
  }
  const auto status = StatusOf(HostPath(folder));
  return status && status->kind == FileKind::Folder;
}

FailureNumber FileNumber(HostError error, std::u16string_view path) {
  switch (error) {
    case HostError::NotFound:
      return HasFolder(path) ? FailureNumber::FileNotFound : FailureNumber::PathNotFound;
    case HostError::NoFolder:
      return FailureNumber::PathNotFound;
    case HostError::BadName:
      return FailureNumber::BadFileName;
    case HostError::Denied:
    case HostError::IsFolder:
      return FailureNumber::PermissionDenied;
    case HostError::InUse:
      return FailureNumber::FileAlreadyOpen;
    case HostError::Exists:
      return FailureNumber::FileAlreadyExists;
    case HostError::OutOfMemory:
      return FailureNumber::OutOfMemory;
    case HostError::Full:
    case HostError::Device:
      break;
  }
  return TransferNumber(error);
}

}  // namespace

Failure FileFailure(HostError error, std::u16string_view path) {
  return {FileNumber(error, path), FailureOrigin::ScriptLibrary, path};
}

Failure BinaryFileFailure(HostError error, std::u16string_view path) {
  const FailureNumber number = FileNumber(error, path);
  const bool isDenied = number == FailureNumber::PermissionDenied;
  return {isDenied ? FailureNumber::PathFileAccess : number, FailureOrigin::Runtime, path};
}

Failure TransferFailure(HostError error) {
  return {TransferNumber(error), FailureOrigin::ScriptLibrary};
}

}  // namespace lexmill::platform
