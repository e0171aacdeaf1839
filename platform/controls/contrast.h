// SPDX-License-Identifier: MIT
// platform/controls: stands in for the desktop system; knows nothing of dictionaries.
// Whether a colour can be read on another. Colours are 0xBBGGRR, none of the system's.
#pragma once

#include "platform/controls/control.h"

namespace lexmill::platform {

/// Least contrast of a text with what lies behind it, and of the edge of something to click.
/// Source: Web Content Accessibility Guidelines 2.1, 1.4.3 and 1.4.11.
inline constexpr double kTextContrast = 4.5;
inline constexpr double kEdgeContrast = 3;

/// The contrast of two colours, from 1 (the same) to 21 (black and white).
/// Source: Web Content Accessibility Guidelines 2.1, "contrast ratio".
[[nodiscard]] double Contrast(Color first, Color second);

/// True for a background that white stands out from more than black does.
[[nodiscard]] bool IsDark(Color background);

/// `color`, or the nearest mix of it with white that has the contrast `least` with a dark
/// `background`. On a light one `color` stays, whatever its contrast.
[[nodiscard]] Color ReadableOnDark(Color color, Color background, double least);

}  // namespace lexmill::platform
