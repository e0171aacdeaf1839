// SPDX-License-Identifier: MIT
// platform/qt: the desktop on the screen; the only folder that knows the toolkit.
// Controls that are nothing but drawing. Each widget shows a control, which has to outlive it.
#pragma once

#include <QPixmap>
#include <QWidget>

#include "platform/controls.h"

namespace lexmill::platform::qt {

class LineWidget final : public QWidget {
 public:
  LineWidget(const Line& line, QWidget& parent);
  void ShowPlace();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const Line& line_;
};

class ShapeWidget final : public QWidget {
 public:
  ShapeWidget(const Shape& shape, QWidget& parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const Shape& shape_;
};

/// Fills the control's place with the picture, at whatever scale.
class ImageWidget final : public QWidget {
 public:
  explicit ImageWidget(QWidget& parent);
  void ShowPicture(std::string_view file);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPixmap picture_;
};

/// A group; what lies behind it shows unless it has a colour of its own.
class PanelWidget final : public QWidget {
 public:
  PanelWidget(const PictureBox& panel, QWidget& parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const PictureBox& panel_;
};

}  // namespace lexmill::platform::qt
