// SPDX-License-Identifier: MIT
// platform/qt: the desktop on the screen; the only folder that knows the toolkit.
// One control on the screen.
#pragma once

#include <functional>

#include <QObject>
#include <QWidget>

#include "platform/controls/control.h"
#include "platform/controls/form.h"
#include "platform/event.h"

namespace lexmill::platform::qt {

/// Makes the widget of one control and keeps the two alike: each change of the control goes to the
/// widget, what a user does on the widget goes to the control. The widget bears the control's name,
/// such as "cmdStart" or "lblState(2)", and belongs to its parent.
class ControlMirror final : public QObject {
 public:
  /// @param form, control  have to outlive the mirror
  /// @param rearrange      called when the control has another container or place in an order
  ControlMirror(const Form& form, Control& control, QWidget& parent,
                std::function<void()> rearrange);

  [[nodiscard]] const Control& Shown() const { return control_; }
  [[nodiscard]] QWidget& Widget() const { return widget_; }

  /// Shows all of the control but its order among the others.
  void ShowAll();
  void Show(ControlProperty what);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ShowVisible();
  void ShowLook();

  const Form& form_;
  Control& control_;
  QWidget& widget_;
  std::function<void()> rearrange_;
  Connection changed_;
};

}  // namespace lexmill::platform::qt
