// SPDX-License-Identifier: MIT
#include "platform/controls/contrast.h"

#include <algorithm>
#include <cmath>

namespace lexmill::platform {
namespace {

constexpr int kMost = 0xFF;
constexpr int kBits = 8;

int Part(Color color, int place) {
  return static_cast<int>(color >> (place * kBits) & kMost);
}

// How much light a part of a colour gives, from 0 to 1.
double Light(int part) {
  const double share = static_cast<double>(part) / kMost;
  return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double Luminance(Color color) {
  return 0.2126 * Light(Part(color, 0)) + 0.7152 * Light(Part(color, 1)) +
         0.0722 * Light(Part(color, 2));
}

Color MixedWithWhite(Color color, int share) {
  Color mixed = 0;
  for (int place = 0; place < 3; ++place) {
    const int part = Part(color, place);
    const int lighter = part + (kMost - part) * share / kMost;
    mixed |= static_cast<Color>(lighter) << (place * kBits);
  }
  return mixed;
}

}  // namespace

double Contrast(Color first, Color second) {
  const auto [darker, lighter] = std::minmax({Luminance(first), Luminance(second)});
  return (lighter + 0.05) / (darker + 0.05);
}

bool IsDark(Color background) {
  return Contrast(background, kWhite) > Contrast(background, kBlack);
}

Color ReadableOnDark(Color color, Color background, double least) {
  if (!IsDark(background)) {
    return color;
  }
  int share = 0;
  while (share < kMost && Contrast(MixedWithWhite(color, share), background) < least) {
    ++share;
  }
  return MixedWithWhite(color, share);
}

}  // namespace lexmill::platform
