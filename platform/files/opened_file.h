// SPDX-License-Identifier: MIT
// platform/files: how a file is opened by its path, whoever reads or writes it.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/failure.h"
#include "platform/host/host_file.h"
#include "platform/host/replacement_file.h"

namespace lexmill::platform {

/// True if `path` can name a file: it is not empty and holds no NUL.
[[nodiscard]] bool IsFileName(std::u16string_view path);

/// A path that can name a file, as the host takes it.
/// @throws Failure InvalidCall for an empty path, BadFileName for one with NUL
[[nodiscard]] HostPath CheckedPath(std::u16string_view path,
                                   FailureOrigin origin = FailureOrigin::ScriptLibrary);

/// A regular file that is open for reading, and its size in bytes when it was opened.
struct OpenedFile {
  HostFile file;
  std::int64_t size = 0;
};

/// Opens a regular file for reading.
/// @throws Failure as CheckedPath; FileNotFound, PathNotFound, PermissionDenied (also for a folder,
///   a pipe or a device)
[[nodiscard]] OpenedFile OpenToRead(std::u16string_view path);

/// Opens the file that takes the place of `path` once it is committed.
/// @throws Failure as CheckedPath; PathNotFound, PermissionDenied, DiskFull
[[nodiscard]] ReplacementFile OpenToReplace(std::u16string_view path);

}  // namespace lexmill::platform
