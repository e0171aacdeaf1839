// SPDX-License-Identifier: MIT
// platform/files: whether a file is UTF-8.
#pragma once

#include <functional>
#include <optional>
#include <string_view>

#include "platform/text/text_encoding.h"

namespace lexmill::platform {

/// Reads a file as far as it may be UTF-8.
/// @param betweenPieces  runs after each piece of a large file but the last
/// @return what its bytes show; none if they aren't valid UTF-8
/// @throws Failure as ReadBinary
[[nodiscard]] std::optional<Utf8Recognition> RecogniseUtf8(
    std::u16string_view path, const std::function<void()>& betweenPieces);

}  // namespace lexmill::platform
