// SPDX-License-Identifier: MIT
// platform/win32: the desktop by native controls; with platform/host/win32 all that knows the
// system. A window on the screen.
#pragma once

#include <memory>
#include <vector>

#include "platform/controls/form.h"
#include "platform/controls/program_end.h"
#include "platform/event.h"
#include "platform/win32/control_mirror.h"
#include "platform/win32/picture.h"
#include "platform/win32/surroundings.h"

namespace lexmill::platform::win32 {

/// Shows a form, which has to outlive it: fixed size, centred, a window for each control, at the
/// resolution of the screen that it is moved to. Keys, the close box and the end of the session go
/// to the form. When the form is unloaded the message loop ends.
class FormWindow {
 public:
  explicit FormWindow(Form& form);
  ~FormWindow();
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;

  [[nodiscard]] HWND Window() const { return window_; }
  /// The window of a control of the form; null for one that is drawn on the ground of its group.
  [[nodiscard]] HWND WindowOf(const Control& control) const;

 private:
  /// @return whether `result` is the answer to the message
  bool Take(UINT message, WPARAM wide, LPARAM param, LRESULT& result);
  bool TakeChange(UINT message, WPARAM wide);
  bool TakeEnd(UINT message, WPARAM wide, LRESULT& result);
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM param);
  static HWND Make(FormWindow& owner);

  void Show(FormProperty what);
  void ShowSize() const;
  void ShowVisible();
  void ShowPlace() const;
  void ShowAt(int left, int top) const;
  void ShowState() const;
  void ShowAll();
  void ShowAnew();
  void ReportPlace();

  /// Brings containers and the order to the windows.
  void Arrange();
  void ShowEnabled();
  void RestoreFocus();
  void NameControls();

  void TakeCommand(HWND window, UINT notification);
  void Draw(const DRAWITEMSTRUCT& drawing) const;
  bool ShowPointer(HWND under) const;
  void TakeScreen(int dpi, const RECT& place);
  [[nodiscard]] bool MayEndSession();
  [[nodiscard]] ControlMirror* MirrorOf(HWND window) const;

  Form& form_;
  HWND window_;
  FontSet fonts_;
  ToolTips tips_;
  Surroundings surroundings_;
  Icon icon_;
  Icon smallIcon_;
  ProgramEnd end_;
  std::vector<std::unique_ptr<ControlMirror>> mirrors_;
  Connection changed_;
};

}  // namespace lexmill::platform::win32
