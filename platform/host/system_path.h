// SPDX-License-Identifier: MIT
// platform/host: what the folder of each system defines for the text of paths, besides what
// host_path.h leaves to it. Called by this folder's sources alone.
#pragma once

#include <cstddef>
#include <string_view>

namespace lexmill::platform::system {

/// How many units at the start of `path` name its root, with the separator: 0 for a relative path.
[[nodiscard]] std::size_t RootLength(std::u16string_view path);

/// The most that a folder takes as a name, as NameLength counts.
inline constexpr std::size_t kLongestName = 255;
[[nodiscard]] std::size_t NameLength(std::u16string_view name);

}  // namespace lexmill::platform::system
