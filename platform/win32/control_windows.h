// SPDX-License-Identifier: MIT
// platform/win32: the desktop by native controls; with platform/host/win32 all that knows the
// system. A window for a control of any kind.
#pragma once

#include "platform/controls/control.h"
#include "platform/win32/surroundings.h"

namespace lexmill::platform::win32 {

/// Makes the window that shows `control`, which has to outlive it, in the form's window; null for a
/// kind that is drawn on the ground of its group.
[[nodiscard]] HWND MakeWindow(Control& control, const Surroundings& surroundings);

/// Brings what a kind has of its own to `window`, which MakeWindow made for `control`.
void ShowOwnProperty(Control& control, ControlProperty what, HWND window,
                     const Surroundings& surroundings);

/// Hands the control a notification of its window's kind.
void TakeOwnNotification(Control& control, HWND window, UINT notification);

}  // namespace lexmill::platform::win32
