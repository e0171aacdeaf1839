// SPDX-License-Identifier: MIT
// platform/qt: the desktop on the screen; the only folder that knows the toolkit.
// Places on the screen.
#pragma once

#include <QRect>

#include "platform/controls/pixels.h"

namespace lexmill::platform::qt {

/// The same place as the toolkit's. Its pixels are those of a screen without scale; the toolkit
/// scales them to the real ones.
[[nodiscard]] inline QRect ToQt(const PixelPlace& place) {
  return {place.left, place.top, place.width, place.height};
}

}  // namespace lexmill::platform::qt
