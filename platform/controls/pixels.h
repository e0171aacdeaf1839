// SPDX-License-Identifier: MIT
// platform/controls: stands in for the desktop system; knows nothing of dictionaries.
// Twips on screens of any resolution.
#pragma once

#include <cstdint>

#include "platform/controls/control.h"

namespace lexmill::platform {

/// Dots to the inch of a screen of no scale.
inline constexpr int kPlainDpi = 96;
inline constexpr int kTwipsPerInch = 1440;

/// A length in pixels of a screen of that resolution, rounded.
[[nodiscard]] constexpr int ToPixels(std::int32_t twips, int dpi = kPlainDpi) {
  const int half = twips < 0 ? -kTwipsPerInch / 2 : kTwipsPerInch / 2;
  return (twips * dpi + half) / kTwipsPerInch;
}

/// A length of such pixels in twips.
[[nodiscard]] constexpr std::int32_t ToTwips(int pixels, int dpi = kPlainDpi) {
  return pixels * kTwipsPerInch / dpi;
}

struct PixelSize {
  int width = 0;
  int height = 0;
};

/// A place in pixels, in whatever the rectangle in twips lies in.
struct PixelPlace {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  bool operator==(const PixelPlace&) const = default;
};

/// A place in pixels. Its edges are rounded one by one, so that neighbours in twips stay
/// neighbours.
[[nodiscard]] constexpr PixelPlace ToPixels(const Rectangle& place, int dpi = kPlainDpi) {
  const int left = ToPixels(place.left, dpi);
  const int top = ToPixels(place.top, dpi);
  return {.left = left,
          .top = top,
          .width = ToPixels(place.left + place.width, dpi) - left,
          .height = ToPixels(place.top + place.height, dpi) - top};
}

}  // namespace lexmill::platform
