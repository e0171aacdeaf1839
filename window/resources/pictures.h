// SPDX-License-Identifier: MIT
// window: the program's one window outside a run.
// The window's pictures: the bytes of PNG files, which live as long as the program.
#pragma once

#include <string_view>

namespace lexmill {

/// The banner of the progress panel, drawn three times as large as its place of 256 by 48 pixels,
/// so that it is sharp on every screen.
[[nodiscard]] std::string_view BannerPicture();

/// The program's icon, 128 by 128 pixels.
[[nodiscard]] std::string_view IconPicture();

}  // namespace lexmill
