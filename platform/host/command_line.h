// SPDX-License-Identifier: MIT
// platform/host: how a command line names a program and its arguments.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lexmill::platform {

/// Name of the program that runs batch files; it lies in the program's folder.
inline constexpr std::u16string_view kBatchProgram = u"batch";
/// The argument of kBatchProgram that goes before a line to run.
inline constexpr std::u16string_view kLineSwitch = u"/c";

/// What parts the words of a command line.
inline constexpr std::u16string_view kBlanks = u" \t";

/// Takes the first word of `rest` off it, with the blanks before it. The word ends before one of
/// the characters of `ends` outside double quotes; the quotes are taken away. A quoted word may be
/// empty; a quote that is not closed reaches to the end.
/// @return none if only blanks are left
[[nodiscard]] std::optional<std::u16string> TakeWord(std::u16string_view& rest,
                                                     std::u16string_view ends = kBlanks);

/// The words of a command line: taken off it by TakeWord until none is left.
[[nodiscard]] std::vector<std::u16string> SplitCommandLine(std::u16string_view line);

/// What to run for a command line: a line that as a whole names an existing `.bat` file, quoted or
/// not, relative to `currentDirectory`, is run by the batch interpreter beside this program; any
/// other is split. What follows `batch /c` stays one word with its quotes, since it is a line
/// for the interpreter to read.
/// @return program and arguments; empty for a line without a word
[[nodiscard]] std::vector<std::u16string> CommandLine(std::u16string_view line,
                                                      std::u16string_view currentDirectory);

}  // namespace lexmill::platform
