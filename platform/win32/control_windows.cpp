// SPDX-License-Identifier: MIT
#include "platform/win32/control_windows.h"

#include "platform/controls/control_kinds.h"
#include "platform/controls/label_fit.h"
#include "platform/win32/buttons.h"
#include "platform/win32/fields.h"
#include "platform/win32/labels.h"
#include "platform/win32/native_window.h"
#include "platform/win32/panels.h"

namespace lexmill::platform::win32 {
namespace {

struct Maker {
  const Surroundings& surroundings;

  HWND operator()(const Label& /*label*/) const { return MakeLabel(surroundings.window); }
  HWND operator()(TextBox& box) const { return MakeField(box, surroundings.window); }
  HWND operator()(ComboBox& combo) const { return MakeField(combo, surroundings.window); }
  HWND operator()(const CheckBox& box) const { return MakeButton(box, surroundings.window); }
  HWND operator()(const Button& button) const { return MakeButton(button, surroundings.window); }
  HWND operator()(const OptionButton& button) const {
    return MakeButton(button, surroundings.window);
  }
  HWND operator()(const PictureBox& panel) const { return MakePanel(panel, surroundings); }
  HWND operator()(const Frame& frame) const { return MakePanel(frame, surroundings); }
  HWND operator()(const Control& /*drawing*/) const { return nullptr; }
};

// Brings one property to the window of a control of some kind. Most kinds add little to what all
// controls have.
struct Shower {
  ControlProperty what;
  HWND window;
  const Surroundings& surroundings;

  void operator()(const Label& label) const { ShowLabel(label, window, surroundings.fonts); }
  void operator()(const TextBox& box) const {
    ShowPlace(box);
    ShowField(box, window);
  }
  void operator()(const ComboBox& combo) const {
    ShowPlace(combo);
    if (what == ControlProperty::Look) {
      surroundings.tips.Set(TypingPart(window), combo.Hint());
    }
    what == ControlProperty::List ? ShowList(combo, window, surroundings.fonts)
                                  : ShowField(combo, window);
  }
  void operator()(const CheckBox& box) const {
    ShowPushed(box);
    ShowState(box, window);
  }
  void operator()(const Button& button) const {
    ShowPushed(button);
    ShowDefault(surroundings.form, button, window);
  }
  void operator()(const OptionButton& button) const {
    ShowPushed(button);
    ShowState(button, window);
  }
  void operator()(const Control& group) const {
    MoveChild(window, ToPixels(group.Place(), surroundings.fonts.Dpi()));
    InvalidateRect(window, nullptr, FALSE);
  }

 private:
  // The look of a field has to do with its place: its line's height. A text scrolls by the place.
  template <class Field>
  void ShowPlace(const Field& field) const {
    if (what == ControlProperty::Place || what == ControlProperty::Look) {
      SetFont(window, surroundings.fonts.Get(field, kNaturalWidth));
      PlaceField(field, window, surroundings.fonts);
    }
  }
  void ShowPushed(const Control& control) const {
    MoveChild(window, ToPixels(control.Place(), surroundings.fonts.Dpi()));
    ShowCaption(control, window, surroundings.fonts);
  }
};

// The control's state is what counts: its window's own is brought back to it.
struct Taker {
  HWND window;
  UINT notification;

  void operator()(Label& label) const { TakeNotification(label, notification); }
  void operator()(TextBox& box) const { TakeNotification(box, window, notification); }
  void operator()(ComboBox& combo) const { TakeNotification(combo, window, notification); }
  void operator()(CheckBox& box) const { TakeButtonNotification(box, notification); }
  void operator()(Button& button) const { TakeButtonNotification(button, notification); }
  void operator()(OptionButton& button) const { TakeButtonNotification(button, notification); }
  void operator()(const Control& /*other*/) const {}
};

}  // namespace

HWND MakeWindow(Control& control, const Surroundings& surroundings) {
  return VisitKind(control, Maker{surroundings});
}

void ShowOwnProperty(Control& control, ControlProperty what, HWND window,
                     const Surroundings& surroundings) {
  VisitKind(control, Shower{what, window, surroundings});
}

void TakeOwnNotification(Control& control, HWND window, UINT notification) {
  VisitKind(control, Taker{window, notification});
}

}  // namespace lexmill::platform::win32
