// SPDX-License-Identifier: MIT
// run: turns one press of the start command into a finished run.
// Which references a run asks.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "run/shared/run_state.h"

namespace lexmill {

/// The paths that the text of the reference's field names: several ones are separated by ";" unless
/// a file of that whole name exists. At least one, which may be empty.
[[nodiscard]] std::vector<std::u16string> ReferencePaths(std::u16string_view field);

/// Keeps the references of a run in its state: those given from outside or, if there are none,
/// those of the window's field.
/// @throws platform::Failure of the system's own if there are several and the options ask for the
///   purified database of one
void KeepReferences(std::u16string_view field);

/// The references of the run, in the order in which they are asked.
[[nodiscard]] std::vector<Reference> ReferencesOfRun();

}  // namespace lexmill
