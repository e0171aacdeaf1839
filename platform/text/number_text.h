// SPDX-License-Identifier: MIT
// platform/text: numbers as people write them.
#pragma once

#include <optional>
#include <string_view>

namespace lexmill::platform {

/// The number that `text` is in the grammar of IsNumeric, correctly rounded; one that is too small
/// for a double is 0.
/// @return none if `text` is no number, or is beyond the range of a double
[[nodiscard]] std::optional<double> ReadNumber(std::u16string_view text);

}  // namespace lexmill::platform
