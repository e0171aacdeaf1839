// SPDX-License-Identifier: MIT
// platform/host: paths of the host as text. The host's separator is '/'; it stands for the
// backslash.
#pragma once

#include <string>
#include <string_view>

namespace lexmill::platform {

inline constexpr char16_t kPathSeparator = u'/';

/// A path as the host's system calls take it. Host paths are UTF-8; a name with other bytes
/// survives the way to text and back.
[[nodiscard]] std::string ToHostPath(std::u16string_view path);
/// The text of a path that the host gave.
[[nodiscard]] std::u16string FromHostPath(std::string_view path);

/// The folder part of `path`, without its last separator unless it is the root; empty if there is
/// none. Text work only: nothing is looked up, and separators at the end do not count.
[[nodiscard]] std::u16string ParentFolder(std::u16string_view path);
/// What stands behind the last separator of `path`.
[[nodiscard]] std::u16string_view FileName(std::u16string_view path);
/// `path` itself if it is absolute, else `path` taken from `folder`.
[[nodiscard]] std::u16string PathFrom(std::u16string_view folder, std::u16string_view path);
/// `folder` with exactly one separator at its end.
[[nodiscard]] std::u16string WithSeparator(std::u16string_view folder);

}  // namespace lexmill::platform
