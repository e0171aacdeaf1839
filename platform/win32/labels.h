// SPDX-License-Identifier: MIT
// platform/win32: the desktop by native controls; with platform/host/win32 all that knows the
// system. A label on the screen.
#pragma once

#include "platform/controls/controls.h"
#include "platform/win32/surroundings.h"

namespace lexmill::platform::win32 {

/// Makes the window of a label, which has to outlive it.
[[nodiscard]] HWND MakeLabel(HWND parent);

/// Shows the caption in the room that place, caption and font ask for. The text may flow a little
/// over the edges of the label's place, so that no scale cuts it off, and is narrowed where a font
/// is too wide; one that is far too long ends in dots, and is whole for those who can't see it.
void ShowLabel(const Label& label, HWND window, FontSet& fonts);

/// Draws the label over the ground of its group, which is drawn anew. The background fills the
/// label's place alone.
void DrawLabel(const Label& label, const DRAWITEMSTRUCT& drawing, const Form& form, FontSet& fonts);

void TakeNotification(Label& label, UINT notification);

}  // namespace lexmill::platform::win32
