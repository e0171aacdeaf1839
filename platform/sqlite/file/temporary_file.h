// SPDX-License-Identifier: MIT
// platform/sqlite/file: files without a name, gone when they are closed.
#pragma once

#include <string>

#include "platform/host/host_file.h"

namespace lexmill::platform::sqlite {

/// Creates an empty file for reading and writing, on the same disk as the file at `neighbour`.
/// No other process sees it, and nothing of it is left, however this one ends.
/// @throws DatabaseError kCannotOpen
[[nodiscard]] HostFile OpenTemporary(const std::string& neighbour);

}  // namespace lexmill::platform::sqlite
