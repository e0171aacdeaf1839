// SPDX-License-Identifier: MIT
// platform/host: an error of the host as a failure of the platform.
#pragma once

#include <string_view>

#include "platform/failure.h"
#include "platform/host/host_error.h"

namespace lexmill::platform {

/// The failure of the file system object for a call on the file `path`, which is its subject: the
/// nearest number that the platform has. NotFound is FileNotFound if the folder of `path` is there,
/// else PathNotFound. InUse is FileAlreadyOpen.
[[nodiscard]] Failure FileFailure(HostError error, std::u16string_view path);

/// The same for binary files of the runtime, which say PathFileAccess for PermissionDenied.
[[nodiscard]] Failure BinaryFileFailure(HostError error, std::u16string_view path);

/// The failure of a read or a write on an open file: DiskFull or DeviceError.
[[nodiscard]] Failure TransferFailure(HostError error);

}  // namespace lexmill::platform
