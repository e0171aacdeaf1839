// SPDX-License-Identifier: MIT
// platform/expression: regular expressions over 16-bit units.
// The text that a replacement puts in the place of a match.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace lexmill::platform {

/// A match in a text: the groups, group 0 being the whole, and what is before and after it.
struct ExpressionMatch {
  std::u16string_view before;
  std::span<const std::u16string_view> groups;
  std::u16string_view after;
};

/// Appends `replacement` to `result` with its $ signs expanded, as RegExp::Replace says.
void ExpandReplacement(std::u16string_view replacement, const ExpressionMatch& match,
                       std::u16string& result);

}  // namespace lexmill::platform
