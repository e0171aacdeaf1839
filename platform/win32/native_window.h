// SPDX-License-Identifier: MIT
// platform/win32: the desktop by native controls; with platform/host/win32 all that knows the
// system. Windows of the system's own kinds.
#pragma once

#include <functional>

#include "platform/controls/pixels.h"
#include "platform/win32/system_headers.h"

namespace lexmill::platform::win32 {

/// Makes a child window of a kind that the system knows, hidden, as all controls of a form have it.
/// @param kind   the name of the kind, such as L"BUTTON"
/// @param style  of that kind, besides what all have
[[nodiscard]] HWND MakeChild(const wchar_t* kind, DWORD style, HWND parent);

/// Moves a child; nothing happens if it is there already.
void MoveChild(HWND child, const PixelPlace& place);

/// The place of a child in its parent.
[[nodiscard]] PixelPlace PlaceOf(HWND child);

/// Gives a window a font unless it has it already.
void SetFont(HWND window, HFONT font);

/// Sees a message to a window before it. @return true if that was all
using MessageFilter = std::function<bool(UINT message, WPARAM wide, LPARAM param)>;

/// Lets `filter` see each message of `window` for as long as the window lives. A failure in it is
/// shown.
void FilterMessages(HWND window, MessageFilter filter);

}  // namespace lexmill::platform::win32
