// SPDX-License-Identifier: MIT
// platform/win32: the desktop by native controls; with platform/host/win32 all that knows the
// system. Keys that the window takes itself.
#pragma once

#include "platform/controls/form.h"
#include "platform/win32/system_headers.h"

namespace lexmill::platform::win32 {

/// Gives a key that is pressed in the form's window to the form: Tab, Enter, Esc, F1, hot keys and
/// shortcuts. A key that is held down counts once. @return false if it is for the focus to take
[[nodiscard]] bool TakeKey(Form& form, HWND window, const MSG& message);

/// The keys that a key string such as "{tab}" names, as the system's numbers; 0 for none.
[[nodiscard]] WPARAM KeyNamed(std::u16string_view keys);

}  // namespace lexmill::platform::win32
