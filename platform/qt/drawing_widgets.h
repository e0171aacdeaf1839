// SPDX-License-Identifier: MIT
// platform/qt: the desktop on the screen; the only folder that knows the toolkit.
// Controls that are nothing but drawing. Each widget shows a control, which has to outlive it.
#pragma once

#include <QPixmap>
#include <QWidget>

#include "platform/controls/controls.h"

namespace lexmill::platform::qt {

/// Draws a line one pixel wide in its control's colour.
class LineWidget final : public QWidget {
 public:
  LineWidget(const Line& line, QWidget& parent);
  /// Takes the room of the line's place, and a pixel at least in each direction.
  void ShowPlace();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const Line& line_;
};

/// Draws a filled rectangle with a frame, in its control's colours.
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
  /// @param file  the bytes of a picture file, copied; nothing is drawn if no format knows them
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
