// SPDX-License-Identifier: MIT
// platform/win32: the desktop by native controls; with platform/host/win32 all that knows the
// system. One control on the screen.
#pragma once

#include "platform/controls/control.h"
#include "platform/event.h"
#include "platform/win32/surroundings.h"

namespace lexmill::platform::win32 {

/// Makes the window of one control and keeps the two alike: each change of the control goes to the
/// window, what a user does there goes to the control. A control that is drawn on its group's
/// ground has no window. Windows go with the form's.
class ControlMirror {
 public:
  /// Both have to outlive the mirror.
  ControlMirror(Control& control, Surroundings& surroundings);

  [[nodiscard]] Control& Shown() const { return control_; }
  /// The control's window; null if it is drawn on the ground.
  [[nodiscard]] HWND Window() const { return window_; }

  /// Shows all of the control but its order among the others.
  void ShowAll();
  void Show(ControlProperty what);
  /// Shows whether a user can work the control, which is a matter of its groups as well.
  void ShowEnabled();
  /// Gives the window the keyboard focus, if a user can work the control.
  void TakeFocus();
  /// Shows what belongs to a button for the Enter key.
  void ShowRole();

  /// Hands the control what its window reports.
  void TakeNotification(UINT notification);
  /// Draws a control that draws itself.
  void Draw(const DRAWITEMSTRUCT& drawing);

 private:
  void ShowVisible();

  Control& control_;
  Surroundings& surroundings_;
  HWND window_;
  Connection changed_;
};

}  // namespace lexmill::platform::win32
