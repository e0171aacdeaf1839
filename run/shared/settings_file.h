// SPDX-License-Identifier: MIT
// run/shared: what every room may read of a run.
#pragma once

#include <string>

namespace lexmill {

/// Path of the settings file: `Lexmill.ini` in the program's folder.
[[nodiscard]] std::u16string SettingsFile();

}  // namespace lexmill
