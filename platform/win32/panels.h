// SPDX-License-Identifier: MIT
// platform/win32: the desktop by native controls; with platform/host/win32 all that knows the
// system. Groups of controls.
#pragma once

#include "platform/controls/form.h"
#include "platform/win32/surroundings.h"

namespace lexmill::platform::win32 {

/// Makes the window of a group, which draws its ground and hands on to the form's window what its
/// controls report. The group and `surroundings` have to outlive it.
[[nodiscard]] HWND MakePanel(const Control& group, const Surroundings& surroundings);

/// Draws the ground of a window in answer to WM_PAINT.
/// @param group  null for the form itself
void PaintGround(HWND window, const Form& form, const Control* group, int dpi);

}  // namespace lexmill::platform::win32
