// SPDX-License-Identifier: MIT
#include "platform/qt/caption_fit.h"

#include <QPushButton>
#include <QStyle>
#include <QStyleOptionButton>

#include "platform/controls/label_fit.h"

namespace lexmill::platform::qt {
namespace {

int WidthOf(const QString& text, const QFont& font) {
  return QFontMetrics(font).size(Qt::TextShowMnemonic, text).width();
}

}  // namespace

bool NarrowInto(QWidget& widget, const QString& text, int room) {
  QFont font = widget.font();
  const auto widthAt = [&](int percent) {
    font.setStretch(percent);
    return WidthOf(text, font);
  };
  const int stretch = FittingWidth(room, widthAt);
  font.setStretch(stretch);
  if (widget.font().stretch() % QFont::Unstretched != stretch % QFont::Unstretched) {
    widget.setFont(font);
  }
  return WidthOf(text, font) <= room;
}

void FitCaption(QAbstractButton& button) {
  QStyleOptionButton option;
  option.initFrom(&button);
  const bool isPush = qobject_cast<QPushButton*>(&button) != nullptr;
  const auto part = isPush ? QStyle::SE_PushButtonContents : QStyle::SE_CheckBoxContents;
  NarrowInto(button, button.text(), button.style()->subElementRect(part, &option, &button).width());
}

}  // namespace lexmill::platform::qt
