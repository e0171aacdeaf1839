// SPDX-License-Identifier: MIT
// platform/host: what a program knows of itself.
// Stands for: the application object and its string resources.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace lexmill::platform {

/// The folder of the running program, without a separator at its end unless it is the root.
[[nodiscard]] std::u16string ApplicationFolder();
/// Takes `folder` for the program's folder from now on; for tests.
void SetApplicationFolder(std::u16string_view folder);

/// The application's title, which message boxes bear.
inline constexpr std::u16string_view kApplicationTitle = u"Lexmill";
inline constexpr std::int32_t kMajorVersion = 0;
inline constexpr std::int32_t kMinorVersion = 14;

/// Puts a text into the program under `id`; the text has to live as long as the program.
void AddStringResource(int id, std::u16string_view text);
/// The text under `id`; empty if there is none.
[[nodiscard]] std::u16string_view LoadStringResource(int id);

}  // namespace lexmill::platform
