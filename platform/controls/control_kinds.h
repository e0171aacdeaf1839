// SPDX-License-Identifier: MIT
// platform/controls: stands in for the desktop system; knows nothing of dictionaries.
// From a control to its kind.
#pragma once

#include "platform/controls/controls.h"

namespace lexmill::platform {

/// Calls `visitor` with the control as what it is.
template <class Visitor>
decltype(auto) VisitKind(Control& control, Visitor&& visitor) {
  switch (control.Kind()) {
    case ControlKind::Label:
      return visitor(static_cast<Label&>(control));
    case ControlKind::ComboBox:
      return visitor(static_cast<ComboBox&>(control));
    case ControlKind::CheckBox:
      return visitor(static_cast<CheckBox&>(control));
    case ControlKind::TextBox:
      return visitor(static_cast<TextBox&>(control));
    case ControlKind::Button:
      return visitor(static_cast<Button&>(control));
    case ControlKind::OptionButton:
      return visitor(static_cast<OptionButton&>(control));
    case ControlKind::PictureBox:
      return visitor(static_cast<PictureBox&>(control));
    case ControlKind::Frame:
      return visitor(static_cast<Frame&>(control));
    case ControlKind::Image:
      return visitor(static_cast<Image&>(control));
    case ControlKind::Line:
      return visitor(static_cast<Line&>(control));
    case ControlKind::Shape:
      break;
  }
  return visitor(static_cast<Shape&>(control));
}

/// True for a kind that is drawn on what lies behind it. Such controls lie behind all others of
/// their group, whatever the order.
[[nodiscard]] constexpr bool IsDrawing(ControlKind kind) {
  return kind == ControlKind::Label || kind == ControlKind::Image || kind == ControlKind::Line ||
         kind == ControlKind::Shape;
}

}  // namespace lexmill::platform
