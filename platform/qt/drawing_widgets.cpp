// SPDX-License-Identifier: MIT
#include "platform/qt/drawing_widgets.h"

#include <QPainter>

#include "platform/qt/colors.h"
#include "platform/qt/qt_place.h"

namespace lexmill::platform::qt {
namespace {

void LetMouseThrough(QWidget& widget) {
  widget.setAttribute(Qt::WA_TransparentForMouseEvents);
}

// A frame one pixel wide. Filled, not drawn: a pen loses pixels at scales that are no whole number.
void FillFrame(QPainter& painter, const QRect& room, const QColor& color) {
  painter.fillRect(QRect(room.topLeft(), QSize(room.width(), 1)), color);
  painter.fillRect(QRect(room.bottomLeft(), QSize(room.width(), 1)), color);
  painter.fillRect(QRect(room.topLeft(), QSize(1, room.height())), color);
  painter.fillRect(QRect(room.topRight(), QSize(1, room.height())), color);
}

}  // namespace

LineWidget::LineWidget(const Line& line, QWidget& parent) : QWidget(&parent), line_(line) {
  LetMouseThrough(*this);
}

// A line without height is still one pixel high.
void LineWidget::ShowPlace() {
  setGeometry(ToQt(ToPixels(line_.Place())).adjusted(0, 0, 1, 1));
}

void LineWidget::paintEvent(QPaintEvent* /*event*/) {
  const QColor color = ToQt(line_.ForeColor(), palette(), QPalette::WindowText);
  QPainter painter(this);
  if (width() == 1 || height() == 1) {
    painter.fillRect(rect(), color);
  } else {
    painter.setPen(color);
    painter.drawLine(rect().topLeft(), rect().bottomRight());
  }
}

ShapeWidget::ShapeWidget(const Shape& shape, QWidget& parent) : QWidget(&parent), shape_(shape) {
  LetMouseThrough(*this);
}

void ShapeWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), ToQt(shape_.BackColor(), palette(), QPalette::Window));
  FillFrame(painter, rect(), ToQt(shape_.ForeColor(), palette(), QPalette::WindowText));
}

ImageWidget::ImageWidget(QWidget& parent) : QWidget(&parent) {
  LetMouseThrough(*this);
}

void ImageWidget::ShowPicture(std::string_view file) {
  picture_.loadFromData(reinterpret_cast<const uchar*>(file.data()),
                        static_cast<uint>(file.size()));
  update();
}

void ImageWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(rect(), picture_);
}

PanelWidget::PanelWidget(const PictureBox& panel, QWidget& parent)
    : QWidget(&parent), panel_(panel) {}

void PanelWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (panel_.BackColor() != kDefaultColor) {
    painter.fillRect(rect(), ToQt(panel_.BackColor(), palette(), QPalette::Window));
  }
  if (panel_.Border()) {
    FillFrame(painter, rect(), palette().color(QPalette::Dark));
  }
}

}  // namespace lexmill::platform::qt
