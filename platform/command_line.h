// SPDX-License-Identifier: MIT
// platform: how a command line names a program and its arguments.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lexmill::platform {

/// The words of a command line: split at blanks outside double quotes, the quotes taken away.
[[nodiscard]] std::vector<std::u16string> SplitCommandLine(std::u16string_view line);

/// What to run for a command line: a line that as a whole names an existing `.bat` file (relative
/// to `currentDirectory`) is run by the batch interpreter beside this program; any other is split.
/// @return program and arguments; empty for a line without a word
[[nodiscard]] std::vector<std::u16string> CommandLine(std::u16string_view line,
                                                      std::u16string_view currentDirectory);

}  // namespace lexmill::platform
