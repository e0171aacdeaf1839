// SPDX-License-Identifier: MIT
// platform/text: text on a page of fixed columns.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

namespace lexmill::platform {

/// How many columns `text` takes: two for wide characters, none for those that combine.
/// Source: Unicode's East Asian width; an ambiguous one counts as narrow
[[nodiscard]] std::size_t Columns(std::u16string_view text);

/// Cuts `text` where a line may be broken, into lines of at most `width` columns; a piece that no
/// break parts may be wider. At least one line. The views share the life of `text`.
/// @param columns  counts the columns of a line
/// Source: Unicode's line breaking algorithm
[[nodiscard]] std::vector<std::u16string_view> WrapLines(
    std::u16string_view text, std::size_t width,
    const std::function<std::size_t(std::u16string_view)>& columns);

}  // namespace lexmill::platform
