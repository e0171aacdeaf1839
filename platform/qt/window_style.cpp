// SPDX-License-Identifier: MIT
#include "platform/qt/window_style.h"

#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>

#include "platform/controls/contrast.h"
#include "platform/qt/colors.h"

namespace lexmill::platform::qt {
namespace {

bool NeedsEdge(QStyle::PrimitiveElement element, const QStyleOption& option) {
  switch (element) {
    case QStyle::PE_IndicatorCheckBox:
      return true;
    case QStyle::PE_PanelButtonCommand:
      return option.state.testFlag(QStyle::State_On);
    default:
      return false;
  }
}

// How much of the colour for what is chosen a pressed button takes on.
constexpr float kPressed = 0.35F;

void DrawEdge(const QStyleOption& option, bool isButton, QPainter& painter) {
  const Color behind = FromQt(option.palette.color(QPalette::Window));
  const Color edge = FromQt(option.palette.color(QPalette::Button));
  painter.setRenderHint(QPainter::Antialiasing);
  QColor pressed = option.palette.color(QPalette::Highlight);
  pressed.setAlphaF(kPressed);
  painter.setBrush(isButton ? QBrush(pressed) : QBrush(Qt::NoBrush));
  painter.setPen(
      ToQt(ReadableOnDark(edge, behind, kEdgeContrast), option.palette, QPalette::WindowText));
  painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
}

}  // namespace

WindowStyle::WindowStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void WindowStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  if (NeedsEdge(element, *option) && IsDark(FromQt(option->palette.color(QPalette::Window)))) {
    painter->save();
    DrawEdge(*option, element == PE_PanelButtonCommand, *painter);
    painter->restore();
  }
}

}  // namespace lexmill::platform::qt
