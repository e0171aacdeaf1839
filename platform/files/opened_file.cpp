// SPDX-License-Identifier: MIT
#include "platform/files/opened_file.h"

#include <utility>

#include "platform/host/host_failure.h"

namespace lexmill::platform {

bool IsFileName(std::u16string_view path) {
  return !path.empty() && path.find(u'\0') == std::u16string_view::npos;
}

HostPath CheckedPath(std::u16string_view path, FailureOrigin origin) {
  if (path.empty()) {
    throw Failure(FailureNumber::InvalidCall, origin);
  }
  if (!IsFileName(path)) {
    throw Failure(FailureNumber::BadFileName, origin);
  }
  return HostPath(path);
}

OpenedFile OpenToRead(std::u16string_view path) {
  auto file = HostFile::Open(CheckedPath(path), OpenMode::Read);
  if (!file) {
    throw FileFailure(file.Error(), path);
  }
  const auto status = file->Status();
  // What a pipe gives is gone with the first reading, and its writer may keep a reader waiting.
  if (!status || status->kind != FileKind::Regular) {
    throw FileFailure(status ? HostError::Denied : status.Error(), path);
  }
  return {*std::move(file), status->size};
}

ReplacementFile OpenToReplace(std::u16string_view path) {
  std::ignore = CheckedPath(path);
  auto file = ReplacementFile::Create(path);
  if (!file) {
    throw FileFailure(file.Error(), path);
  }
  return *std::move(file);
}

}  // namespace lexmill::platform
