// SPDX-License-Identifier: MIT
#include "platform/files/opened_file.h"

#include <fcntl.h>

#include <cerrno>
#include <optional>
#include <utility>

#include "platform/host/host_failure.h"
#include "platform/host/host_path.h"

namespace lexmill::platform {

bool IsFileName(std::u16string_view path) {
  return !path.empty() && path.find(u'\0') == std::u16string_view::npos;
}

std::string CheckedPath(std::u16string_view path, FailureOrigin origin) {
  if (path.empty()) {
    throw Failure(FailureNumber::InvalidCall, origin);
  }
  if (!IsFileName(path)) {
    throw Failure(FailureNumber::BadFileName, origin);
  }
  return ToHostPath(path);
}

OpenedFile OpenToRead(std::u16string_view path) {
  const std::string hostPath = CheckedPath(path);
  HostFile file = HostFile::Open(hostPath, O_RDONLY);
  const auto status = file.IsOpen() ? file.Status() : std::nullopt;
  // What a pipe gives is gone with the first reading, and its writer may keep a reader waiting.
  if (!status || status->kind != FileKind::Regular) {
    throw FileFailure(status ? EACCES : errno, hostPath);
  }
  return {std::move(file), status->size};
}

ReplacementFile OpenToReplace(std::u16string_view path) {
  const std::string hostPath = CheckedPath(path);
  auto file = ReplacementFile::Create(hostPath);
  if (!file) {
    throw FileFailure(errno, hostPath);
  }
  return std::move(*file);
}

}  // namespace lexmill::platform
