// SPDX-License-Identifier: MIT
// platform/qt: the desktop on the screen; the only folder that knows the toolkit.
// Twips on the screen.
#pragma once

#include <cstdint>

#include <QRect>

#include "platform/controls/control.h"

namespace lexmill::platform::qt {

inline constexpr std::int32_t kTwipsPerPixel = 15;

/// A length of pixels in twips.
[[nodiscard]] constexpr std::int32_t ToTwips(int pixels) {
  return pixels * kTwipsPerPixel;
}

/// A length in the toolkit's pixels, which are those of a screen of 96 dpi and which the toolkit
/// scales to the real ones.
[[nodiscard]] constexpr int ToPixels(std::int32_t twips) {
  const std::int32_t half = twips < 0 ? -kTwipsPerPixel / 2 : kTwipsPerPixel / 2;
  return (twips + half) / kTwipsPerPixel;
}

/// A place in pixels. Its edges are rounded one by one, so that neighbours in twips stay
/// neighbours.
[[nodiscard]] inline QRect ToPixels(const Rectangle& place) {
  const QPoint leftTop(ToPixels(place.left), ToPixels(place.top));
  return {leftTop, QSize(ToPixels(place.left + place.width) - leftTop.x(),
                         ToPixels(place.top + place.height) - leftTop.y())};
}

}  // namespace lexmill::platform::qt
