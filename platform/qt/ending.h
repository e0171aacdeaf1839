// SPDX-License-Identifier: MIT
// platform/qt: the desktop on the screen; the only folder that knows the toolkit.
// The program's end when others ask for it: a signal, the end of the desktop session.
#pragma once

#include "platform/form.h"

namespace lexmill::platform::qt {

/// Closes `form` as its close box would. A window that is at work closes as soon as it can: its
/// child processes are ended, and from now on no dialog waits for an answer.
void EndProgram(Form& form);

/// True once EndProgram was called.
[[nodiscard]] bool IsEnding();

}  // namespace lexmill::platform::qt
