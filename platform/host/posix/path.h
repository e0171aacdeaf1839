// SPDX-License-Identifier: MIT
// platform/host/posix: paths as the system's calls take them.
#pragma once

#include "platform/host/host_path.h"

namespace lexmill::platform::system {

/// The system ends a name at its first NUL and would take another file for it; it knows no file
/// without a name, which is what is given to it then. Good as long as `path`.
[[nodiscard]] const char* NameOf(const HostPath& path);

}  // namespace lexmill::platform::system
