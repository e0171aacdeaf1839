// SPDX-License-Identifier: MIT
// platform/controls: the program on the screen. Declared here, implemented in qt/ and in win32/;
// the program with a window links the one or the other.
#pragma once

#include <functional>

#include "platform/controls/form.h"

namespace lexmill::platform {

/// True if there is a screen to open windows on.
[[nodiscard]] bool IsScreenThere();

/// Calls `open`, shows the form that it returns, which has to live until the end of this call, and
/// delivers what the user does until the form is unloaded. A failure that leaves an event's
/// listener is shown, and the program goes on.
/// @param argc, argv  of the program's main; options of the toolkit are taken out
/// @param opened      called once the window is there
/// @return the program's exit code
[[nodiscard]] int RunOnScreen(int& argc, char** argv, const std::function<Form&()>& open,
                              const std::function<void()>& opened);

}  // namespace lexmill::platform
