// SPDX-License-Identifier: MIT
// platform/qt: the desktop on the screen; the only folder that knows the toolkit.
// How the toolkit draws a window's parts.
#pragma once

#include <QProxyStyle>

namespace lexmill::platform::qt {

/// The toolkit's style with narrow edges, for which the places are drawn; colours are the user's.
/// In a dark palette, whose edges that style makes darker still, boxes to check and buttons that
/// stay pressed get an edge that can be seen.
class WindowStyle final : public QProxyStyle {
 public:
  WindowStyle();

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

}  // namespace lexmill::platform::qt
