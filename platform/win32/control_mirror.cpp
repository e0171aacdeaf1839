// SPDX-License-Identifier: MIT
#include "platform/win32/control_mirror.h"

#include "platform/controls/controls.h"
#include "platform/controls/window_keys.h"
#include "platform/win32/buttons.h"
#include "platform/win32/control_windows.h"
#include "platform/win32/labels.h"

namespace lexmill::platform::win32 {
namespace {

bool HoldsFocus(HWND window) {
  HWND focus = GetFocus();
  return focus != nullptr && (focus == window || IsChild(window, focus) != FALSE);
}

}  // namespace

ControlMirror::ControlMirror(Control& control, Surroundings& surroundings)
    : control_(control),
      surroundings_(surroundings),
      window_(MakeWindow(control, surroundings)),
      changed_(control.Changed.Connect([this](ControlProperty what) { Show(what); })) {}

void ControlMirror::ShowAll() {
  for (const auto what : {ControlProperty::Look, ControlProperty::List, ControlProperty::Place,
                          ControlProperty::Visible}) {
    Show(what);
  }
  ShowEnabled();
}

void ControlMirror::Show(ControlProperty what) {
  switch (what) {
    case ControlProperty::Container:
    case ControlProperty::ZOrder:
    case ControlProperty::TabIndex:
      surroundings_.rearrange();
      return;
    case ControlProperty::Enabled:
      surroundings_.showEnabled();
      return;
    case ControlProperty::Focus:
      surroundings_.restoreFocus();
      return;
    default:
      break;
  }
  if (window_ == nullptr) {
    // The ground that shows it may be that of a group within the window.
    RedrawWindow(surroundings_.window, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
  } else if (what == ControlProperty::Visible) {
    ShowVisible();
  } else {
    if (what == ControlProperty::Look) {
      surroundings_.tips.Set(window_, control_.Hint());
    }
    ShowOwnProperty(control_, what, window_, surroundings_);
  }
}

// The focus of a control that goes is the window's until the control comes back: the user is to
// find it where it was.
void ControlMirror::ShowVisible() {
  if (!control_.Visible() && HoldsFocus(window_)) {
    SetFocus(surroundings_.window);
  }
  ShowWindow(window_, control_.Visible() ? SW_SHOWNA : SW_HIDE);
  surroundings_.restoreFocus();
}

void ControlMirror::TakeFocus() {
  if (window_ != nullptr && control_.IsUsable() && !HoldsFocus(window_)) {
    SetFocus(window_);
  }
}

void ControlMirror::ShowEnabled() {
  const bool isEnabled = control_.IsEnabled();
  if (window_ == nullptr || (IsWindowEnabled(window_) != FALSE) == isEnabled) {
    return;
  }
  const bool hadFocus = HoldsFocus(window_);
  EnableWindow(window_, isEnabled ? TRUE : FALSE);
  InvalidateRect(window_, nullptr, FALSE);
  if (hadFocus && !isEnabled) {
    if (Control* next = NextInTabOrder(surroundings_.form, &control_, false)) {
      next->SetFocus();
    }
  }
}

void ControlMirror::ShowRole() {
  if (control_.Kind() == ControlKind::Button) {
    ShowDefault(surroundings_.form, static_cast<Button&>(control_), window_);
  }
}

void ControlMirror::TakeNotification(UINT notification) {
  TakeOwnNotification(control_, window_, notification);
}

void ControlMirror::Draw(const DRAWITEMSTRUCT& drawing) {
  if (control_.Kind() == ControlKind::Label) {
    DrawLabel(static_cast<Label&>(control_), drawing, surroundings_.form, surroundings_.fonts);
  }
}

}  // namespace lexmill::platform::win32
