// SPDX-License-Identifier: MIT
// run: turns one press of the start command into a finished run.
// What lexmill-run does with the window: it sets the options, fills in the paths and presses start.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

#include "run/console_arguments.h"

namespace lexmill {

/// Sets an option's control: a check box to "0" or "1", a text box to any text.
/// @return false for a name that is no option's, or another value for a check box
[[nodiscard]] bool SetOption(std::u16string_view name, std::u16string_view value);

/// Sets the options as `arguments` say, in this order: settings file, preset, single options.
/// @return what is wrong with the settings file or the first option that can't be set, in UTF-8;
///   empty if all are set
[[nodiscard]] std::string SetOptions(const ConsoleArguments& arguments);

/// Fills in the three paths and presses the start button. Returns when the run is over.
void PressStart(const ConsoleArguments& arguments);

/// Explains on `output` what a run with `arguments` would do with their string: UTF-8, each line
/// ended by LF. Shows a failure.
/// @return whether a reference knows the string; none after a failure
[[nodiscard]] std::optional<bool> ExplainWanted(const ConsoleArguments& arguments,
                                                std::ostream& output);

/// The rows of the progress panel, UTF-8, each line ended by LF; the fifth only if it has text.
[[nodiscard]] std::string ProgressRows();

/// Writes the report of the run that has just ended to `output` as a table, UTF-8, each line ended
/// by LF. Shows a failure.
void PrintReport(std::ostream& output);

/// The text of the last row that has one, in UTF-8.
[[nodiscard]] std::string CurrentProgress();

}  // namespace lexmill
