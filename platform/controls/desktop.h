// SPDX-License-Identifier: MIT
// platform/controls: services of the desktop. Declared here, implemented in qt/ and in headless/; a
// program links the one or the other.
#pragma once

#include <cstdint>
#include <string_view>

namespace lexmill::platform {

/// Lets the window's pending events run once.
void DoEvents();

enum class MousePointer { Default, Hourglass };
/// Sets the application's mouse pointer.
void SetMousePointer(MousePointer pointer);

/// Sends a key string such as "{tab}" to the active window.
void SendKeys(std::u16string_view keys);

/// Size of the screen in twips, and twips to the pixel in each direction.
struct ScreenMetrics {
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::int32_t twipsPerPixelX = 15;
  std::int32_t twipsPerPixelY = 15;
};
/// The screen that the program's window is on.
[[nodiscard]] ScreenMetrics GetScreenMetrics();

/// Hands a folder or an address to the desktop's shell, which opens it. Fails silently.
void ShellOpen(std::u16string_view target);

}  // namespace lexmill::platform
