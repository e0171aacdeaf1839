// SPDX-License-Identifier: MIT
// platform/qt: the desktop on the screen; the only folder that knows the toolkit.
// A window on the screen.
#pragma once

#include <memory>
#include <vector>

#include <QWidget>

#include "platform/controls/form.h"
#include "platform/event.h"
#include "platform/qt/control_mirror.h"

namespace lexmill::platform::qt {

/// Shows a form, which has to outlive it: fixed size, centred, a widget for each control. Enter,
/// Esc and the close box go to the form. When the form is unloaded the message loop ends.
class FormWindow final : public QWidget {
 public:
  explicit FormWindow(Form& form);

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void SetShortcuts();
  void Show(FormProperty what);
  void ShowVisible();
  void ShowPlace();
  void ShowState();
  void ReportPlace();
  /// Brings containers and both orders to the widgets.
  void Arrange();

  Form& form_;
  std::vector<std::unique_ptr<ControlMirror>> mirrors_;
  Connection changed_;
};

}  // namespace lexmill::platform::qt
