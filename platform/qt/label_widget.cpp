// SPDX-License-Identifier: MIT
#include "platform/qt/label_widget.h"

#include <QMouseEvent>
#include <QPainter>

#include "platform/controls/label_fit.h"
#include "platform/controls/spoken_names.h"
#include "platform/qt/caption_fit.h"
#include "platform/qt/colors.h"
#include "platform/qt/qt_place.h"
#include "platform/qt/qt_text.h"

namespace lexmill::platform::qt {
namespace {

Qt::Alignment ToQt(Alignment alignment) {
  switch (alignment) {
    case Alignment::Right:
      return Qt::AlignRight;
    case Alignment::Center:
      return Qt::AlignHCenter;
    case Alignment::Left:
      break;
  }
  return Qt::AlignLeft;
}

QColor TextColor(const Label& label, const QPalette& palette) {
  const QColor laidDown = qt::ToQt(label.ForeColor(), palette, QPalette::WindowText);
  const Color behind = qt::FromQt(palette.color(QPalette::Window));
  return qt::ToQt(ReadableTextColor(label, qt::FromQt(laidDown), behind), palette,
                  QPalette::WindowText);
}

}  // namespace

LabelWidget::LabelWidget(Label& label, QWidget& parent) : QLabel(&parent), label_(label) {
  setTextFormat(Qt::PlainText);
}

// The toolkit itself reads hot key marks where a label has a field to hand the focus to. A text
// that is too long all the same is whole for those who can't see it.
void LabelWidget::FitText() {
  const std::u16string& caption = label_.Caption();
  const QString whole = qt::ToQt(buddy() == nullptr ? WithoutMarks(caption) : caption);
  const int room = ToPixels(label_.Place().width) + kMostFlow;
  const bool fits = NarrowInto(*this, whole, room);
  setText(fits ? whole : fontMetrics().elidedText(whole, Qt::ElideRight, room));
  setAccessibleName(fits ? QString() : whole);
}

void LabelWidget::ShowPlace() {
  FitText();
  const QSize text = sizeHint();
  setGeometry(
      qt::ToQt(Flowing(ToPixels(label_.Place()), {.width = text.width(), .height = text.height()},
                       label_.Alignment())));
  update();
}

void LabelWidget::ShowLook() {
  QPalette colors;
  colors.setColor(QPalette::WindowText, TextColor(label_, colors));
  setPalette(colors);
  setAlignment(ToQt(label_.Alignment()) | Qt::AlignVCenter);
  if (label_.HandPointer()) {
    setCursor(Qt::PointingHandCursor);
  } else {
    unsetCursor();
  }
  ShowPlace();
}

// The toolkit forgets the size of the text in the font before.
void LabelWidget::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::FontChange) {
    ShowPlace();
  }
}

void LabelWidget::paintEvent(QPaintEvent* event) {
  if (!label_.Transparent() && label_.BackColor() != kDefaultColor) {
    QPainter(this).fillRect(qt::ToQt(ToPixels(label_.Place())).translated(-pos()),
                            qt::ToQt(label_.BackColor(), palette(), QPalette::Window));
  }
  QLabel::paintEvent(event);
}

void LabelWidget::mousePressEvent(QMouseEvent* event) {
  pressed_ = event->button() == Qt::LeftButton;
}

void LabelWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (std::exchange(pressed_, false) && rect().contains(event->position().toPoint())) {
    label_.UserClicks();
  }
}

void LabelWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) {
    label_.UserDoubleClicks();
  }
}

}  // namespace lexmill::platform::qt
