// SPDX-License-Identifier: MIT
#include "platform/qt/colors.h"

namespace lexmill::platform::qt {

QColor ToQt(Color color, const QPalette& palette, QPalette::ColorRole otherwise) {
  constexpr Color kByte = 0xFF;
  switch (color) {
    case kDefaultColor:
      return palette.color(otherwise);
    case kHighlightColor:
      return palette.color(QPalette::Highlight);
    case kButtonShadowColor:
      return palette.color(QPalette::Dark);
    case kButtonHighlightColor:
      return palette.color(QPalette::Light);
    default:
      return {static_cast<int>(color & kByte), static_cast<int>(color >> 8 & kByte),
              static_cast<int>(color >> 16 & kByte)};
  }
}

Color FromQt(const QColor& color) {
  return static_cast<Color>(color.red() | color.green() << 8 | color.blue() << 16);
}

}  // namespace lexmill::platform::qt
