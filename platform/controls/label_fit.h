// SPDX-License-Identifier: MIT
// platform/controls: stands in for the desktop system; knows nothing of dictionaries.
// Captions in places that were drawn for one font, shown in whatever font the desktop has.
#pragma once

#include <functional>

#include "platform/controls/controls.h"
#include "platform/controls/pixels.h"

namespace lexmill::platform {

/// The natural width of characters, in percent, and the least share of it that they are narrowed
/// to.
inline constexpr int kNaturalWidth = 100;
inline constexpr int kNarrowest = 60;

/// How much wider than its place a label's text may be, in pixels of a screen without scale.
inline constexpr int kMostFlow = 8;

/// The width of characters, in percent, that lets a text take no more than `room` pixels; never
/// below kNarrowest.
/// @param widthAt  how wide the text is with characters of such a width
[[nodiscard]] int FittingWidth(int room, const std::function<int(int percent)>& widthAt);

/// `place` made as large as a text needs: to the sides that the alignment leaves free, and upwards
/// more than downwards, since lines have more room of their own above the characters and often a
/// field below.
[[nodiscard]] PixelPlace Flowing(const PixelPlace& place, const PixelSize& text,
                                 Alignment alignment);

/// A label's text colour for the eye. A colour of the system's may be too dim on a dark background
/// of the system's.
/// @param laidDown, behind  the label's ForeColor and the window's background as the system has
/// them
[[nodiscard]] Color ReadableTextColor(const Label& label, Color laidDown, Color behind);

}  // namespace lexmill::platform
