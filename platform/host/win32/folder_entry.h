// SPDX-License-Identifier: MIT
// platform/host/win32: what a folder lists.
#pragma once

#include <optional>
#include <string>

#include "platform/host/win32/windows_api.h"

namespace lexmill::platform::system {

/// What the folder of `name` lists under it, without a look at the file itself, which may be closed
/// to everybody; none if there is no such entry or the folder may not be read.
[[nodiscard]] std::optional<WIN32_FIND_DATAW> FolderEntry(const std::wstring& name);

}  // namespace lexmill::platform::system
