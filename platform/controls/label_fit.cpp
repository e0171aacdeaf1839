// SPDX-License-Identifier: MIT
#include "platform/controls/label_fit.h"

#include <algorithm>

#include "platform/controls/contrast.h"

namespace lexmill::platform {

int FittingWidth(int room, const std::function<int(int percent)>& widthAt) {
  int percent = kNaturalWidth;
  while (percent > kNarrowest && widthAt(percent) > room) {
    --percent;
  }
  return percent;
}

PixelPlace Flowing(const PixelPlace& place, const PixelSize& text, Alignment alignment) {
  const int across = std::max(0, text.width - place.width);
  const int down = std::max(0, text.height - place.height);
  int toLeft = 0;
  if (alignment == Alignment::Right) {
    toLeft = across;
  } else if (alignment == Alignment::Center) {
    toLeft = across / 2;
  }
  return {.left = place.left - toLeft,
          .top = place.top - (down - down / 3),
          .width = place.width + across,
          .height = place.height + down};
}

Color ReadableTextColor(const Label& label, Color laidDown, Color behind) {
  const bool isSystems = label.ForeColor() == kHighlightColor && label.BackColor() == kDefaultColor;
  return isSystems ? ReadableOnDark(laidDown, behind, kTextContrast) : laidDown;
}

}  // namespace lexmill::platform
