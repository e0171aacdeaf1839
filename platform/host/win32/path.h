// SPDX-License-Identifier: MIT
// platform/host/win32: paths as the system's calls take them.
#pragma once

#include <string>

#include "platform/host/host_error.h"
#include "platform/host/host_path.h"

namespace lexmill::platform::system {

/// The name of `path` for the wide calls, from the root on if it is too long for them otherwise.
/// @return BadName for a name that no file can have: one with NUL, of a device (`aux`, `nul.txt`),
///   or of a second stream within a file (`a:b`); NotFound for an empty one
[[nodiscard]] HostResult<std::wstring> NameOf(const HostPath& path);

/// The same for the start of programs, which takes no long path, marked or not: one goes by the
/// short names of its folders, where the disk has them.
[[nodiscard]] HostResult<std::wstring> NameForStart(const HostPath& path);

/// A path as the system gives it, without the mark of long ones.
[[nodiscard]] HostPath FromSystem(std::wstring_view name);

}  // namespace lexmill::platform::system
