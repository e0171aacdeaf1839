// SPDX-License-Identifier: MIT
// platform/qt: the desktop on the screen; the only folder that knows the toolkit.
// A label on the screen.
#pragma once

#include <QLabel>

#include "platform/controls/controls.h"

namespace lexmill::platform::qt {

/// Shows a label, which has to outlive it. The text may flow a little over the edges of the label's
/// place, so that no scale cuts it off, and is narrowed where a font is too wide; one that is far
/// too long ends in dots. The background fills the place alone.
class LabelWidget final : public QLabel {
 public:
  LabelWidget(Label& label, QWidget& parent);

  /// Shows the caption in the room that place, caption and font ask for.
  void ShowPlace();
  /// Shows text colour, alignment and mouse pointer.
  void ShowLook();

 protected:
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  void FitText();

  Label& label_;
  bool pressed_ = false;
};

}  // namespace lexmill::platform::qt
