// SPDX-License-Identifier: MIT
// platform/win32: the desktop by native controls; with platform/host/win32 all that knows the
// system. Colours of controls on the screen.
#pragma once

#include "platform/controls/control.h"
#include "platform/win32/system_headers.h"

namespace lexmill::platform::win32 {

/// A control's colour, those of the system as the user has them.
/// @param otherwise  the system's colour that stands for kDefaultColor, such as COLOR_BTNFACE
[[nodiscard]] COLORREF ToSystem(Color color, int otherwise);

/// Fills a rectangle.
void Fill(HDC device, const RECT& room, COLORREF color);
/// Draws a frame that many pixels wide inside a rectangle.
void Frame(HDC device, RECT room, COLORREF color, int width);

}  // namespace lexmill::platform::win32
