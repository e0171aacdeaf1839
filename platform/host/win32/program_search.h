// SPDX-License-Identifier: MIT
// platform/host/win32: where programs are found.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lexmill::platform::system {

/// The file of the program that a start in `directory` means by `program`, as ProgramStart says; a
/// name without `.exe` is meant to have it. Scripts are no programs, since the system's own
/// interpreter would read them.
/// @return none if there is no such file
[[nodiscard]] std::optional<std::wstring> ProgramFile(std::u16string_view program,
                                                      std::u16string_view directory);

}  // namespace lexmill::platform::system
