// SPDX-License-Identifier: MIT
// platform/win32: the desktop by native controls; with platform/host/win32 all that knows the
// system. Controls that are nothing but drawing, on the ground of their group.
#pragma once

#include "platform/controls/form.h"
#include "platform/win32/system_headers.h"

namespace lexmill::platform::win32 {

/// True for a control that its group's ground shows; it has no window of its own.
[[nodiscard]] constexpr bool IsOnGround(ControlKind kind) {
  return kind == ControlKind::Line || kind == ControlKind::Shape || kind == ControlKind::Image;
}

/// Draws the background of a group's window, its border and all that lies on it without a window.
/// @param group  null for the form itself
void DrawGround(HDC device, const RECT& room, const Form& form, const Control* group, int dpi);

}  // namespace lexmill::platform::win32
