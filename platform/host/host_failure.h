// SPDX-License-Identifier: MIT
// platform/host: the host's `errno` as a failure of the platform. Above the platform nobody sees
// `errno`.
#pragma once

#include <string>

#include "platform/failure.h"

namespace lexmill::platform {

/// The failure of the file system object that stands for `error`, an `errno` of a call on the file
/// `path`: the nearest number that the platform has. ENOENT is FileNotFound if the folder of `path`
/// is there, else PathNotFound. The path is its subject.
[[nodiscard]] Failure FileFailure(int error, const std::string& path);

/// The same for binary files of the runtime, which say PathFileAccess for PermissionDenied.
[[nodiscard]] Failure BinaryFileFailure(int error, const std::string& path);

/// The failure of a read or a write on an open file: DiskFull or DeviceError.
[[nodiscard]] Failure TransferFailure(int error);

}  // namespace lexmill::platform
