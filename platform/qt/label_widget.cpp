// SPDX-License-Identifier: MIT
#include "platform/qt/label_widget.h"

#include <algorithm>

#include <QMouseEvent>
#include <QPainter>

#include "platform/controls/contrast.h"
#include "platform/qt/caption_fit.h"
#include "platform/qt/colors.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/twips.h"

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

// `place` made as large as `text` needs: to the sides that the alignment leaves free, and upwards
// more than downwards, since lines have more room of their own above the characters and often a
// field below.
QRect Flowing(const QRect& place, const QSize& text, Alignment alignment) {
  const int across = std::max(0, text.width() - place.width());
  const int down = std::max(0, text.height() - place.height());
  const int above = down - down / 3;
  int toLeft = 0;
  if (alignment == Alignment::Right) {
    toLeft = across;
  } else if (alignment == Alignment::Center) {
    toLeft = across / 2;
  }
  return place.adjusted(-toLeft, -above, across - toLeft, down - above);
}

// The caption without its hot key marks.
QString WithoutMarks(const QString& caption) {
  QString plain;
  for (qsizetype i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && i + 1 < caption.size()) {
      ++i;
    }
    plain += caption[i];
  }
  return plain;
}

// A colour of the system's may be too dim on a dark background of the system's.
QColor TextColor(const Label& label, const QPalette& palette) {
  const QColor laidDown = qt::ToQt(label.ForeColor(), palette, QPalette::WindowText);
  if (label.ForeColor() != kHighlightColor || label.BackColor() != kDefaultColor) {
    return laidDown;
  }
  const Color behind = qt::FromQt(palette.color(QPalette::Window));
  return qt::ToQt(ReadableOnDark(qt::FromQt(laidDown), behind, kTextContrast), palette,
                  QPalette::WindowText);
}

// How much wider than its place a text may be, in pixels.
constexpr int kMostFlow = 8;

}  // namespace

LabelWidget::LabelWidget(Label& label, QWidget& parent) : QLabel(&parent), label_(label) {
  setTextFormat(Qt::PlainText);
}

// The toolkit itself reads hot key marks where a label has a field to hand the focus to. A text
// that is too long all the same is whole for those who can't see it.
void LabelWidget::FitText() {
  const QString caption = qt::ToQt(label_.Caption());
  const QString whole = buddy() == nullptr ? WithoutMarks(caption) : caption;
  const int room = ToPixels(label_.Place().width) + kMostFlow;
  const bool fits = NarrowInto(*this, whole, room);
  setText(fits ? whole : fontMetrics().elidedText(whole, Qt::ElideRight, room));
  setAccessibleName(fits ? QString() : whole);
}

void LabelWidget::ShowPlace() {
  FitText();
  setGeometry(Flowing(ToPixels(label_.Place()), sizeHint(), label_.Alignment()));
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
    QPainter(this).fillRect(ToPixels(label_.Place()).translated(-pos()),
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
