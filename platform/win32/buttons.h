// SPDX-License-Identifier: MIT
// platform/win32: the desktop by native controls; with platform/host/win32 all that knows the
// system. Everything that a user presses.
#pragma once

#include "platform/controls/controls.h"
#include "platform/win32/surroundings.h"

namespace lexmill::platform::win32 {

/// Make the window of a control, which has to outlive it.
[[nodiscard]] HWND MakeButton(const CheckBox& box, HWND parent);
[[nodiscard]] HWND MakeButton(const Button& button, HWND parent);
[[nodiscard]] HWND MakeButton(const OptionButton& button, HWND parent);

/// Bring the state to the window.
void ShowState(const CheckBox& box, HWND window);
void ShowState(const OptionButton& button, HWND window);
/// Shows whether the Enter key presses the button.
void ShowDefault(const Form& form, const Button& button, HWND window);

/// Shows the caption, narrowed where it doesn't fit. Hot keys are underlined as the user has it.
void ShowCaption(const Control& control, HWND window, FontSet& fonts);

/// Hands the control what its window reports.
template <class Pressed>
void TakeButtonNotification(Pressed& control, UINT notification) {
  if (notification == BN_SETFOCUS && control.IsUsable()) {
    control.SetFocus();
  } else if (notification == BN_CLICKED || notification == BN_DOUBLECLICKED) {
    control.UserClicks();
  }
}

}  // namespace lexmill::platform::win32
