// SPDX-License-Identifier: MIT
// window: the program's one window outside a run.
// The banner of the progress panel.
#pragma once

#include <string_view>

namespace lexmill {

/// The bytes of a PNG file, drawn three times as large as its place of 256 by 48 pixels, so that it
/// is sharp on every screen. They live as long as the program.
[[nodiscard]] std::string_view BannerPicture();

}  // namespace lexmill
