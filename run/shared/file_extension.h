// SPDX-License-Identifier: MIT
// run/shared: what every room may read of a run.
#pragma once

#include <string>
#include <string_view>

namespace lexmill::modMain {

/// `path` up to but not including the last "." of the whole path, and `extension`, which brings its
/// own point. The point may be one of a folder's name.
/// @throws platform::Failure InvalidCall for a path without any point
[[nodiscard]] std::u16string ChangeFileExtension(std::u16string_view path,
                                                 const std::u16string& extension);

}  // namespace lexmill::modMain
