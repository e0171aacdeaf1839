// SPDX-License-Identifier: MIT
// platform/win32: the desktop by native controls; with platform/host/win32 all that knows the
// system. Fields for texts: what a user types, chooses or drops.
#pragma once

#include "platform/controls/controls.h"
#include "platform/win32/surroundings.h"

namespace lexmill::platform::win32 {

/// Make the window of a control, which has to outlive it.
[[nodiscard]] HWND MakeField(TextBox& box, HWND parent);
[[nodiscard]] HWND MakeField(ComboBox& combo, HWND parent);

/// The window within the field that a user types into.
[[nodiscard]] HWND TypingPart(HWND combo);

/// Bring text, limit and list to the field. What is there already stays, with its cursor.
void ShowField(const TextBox& box, HWND field);
void ShowField(const ComboBox& combo, HWND field);
void ShowList(const ComboBox& combo, HWND field, FontSet& fonts);

/// Put the field at the control's place. Where that is too low for a line of the desktop's font, a
/// field for text takes what it needs.
void PlaceField(const TextBox& box, HWND field, FontSet& fonts);
void PlaceField(const ComboBox& combo, HWND field, FontSet& fonts);

/// Hand the control what the field reports by a notification of its kind.
void TakeNotification(TextBox& box, HWND field, UINT notification);
void TakeNotification(ComboBox& combo, HWND field, UINT notification);

}  // namespace lexmill::platform::win32
