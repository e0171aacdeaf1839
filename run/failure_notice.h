// SPDX-License-Identifier: MIT
// run: turns one press of the start command into a finished run.
// What a failure was about: its message box names no file and no option.
#pragma once

#include "platform/failure.h"

namespace lexmill {

/// Adds a notice to the run's that names the file of a failure, or the option whose expression
/// doesn't compile. None if that can't be known, or if it has been noted before.
void NoteSubject(const platform::Failure& failure);

}  // namespace lexmill
