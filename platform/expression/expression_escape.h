// SPDX-License-Identifier: MIT
// platform/expression: regular expressions over 16-bit units.
// The escapes of the script engine's pattern grammar.
#pragma once

#include <string_view>

namespace lexmill::platform {

/// What an escape stands for: one unit, or the set that a letter of "dDwWsS" names.
struct Escape {
  char16_t unit = 0;  ///< the unit, or the letter of the set
  bool isSet = false;
};

/// Reads the escape whose backslash is at `at` and moves `at` past it. Control, hexadecimal
/// and octal forms that are not complete, and every other escape, stand for the unit after the
/// backslash. Assertions and references to groups mean something outside sets only and are the
/// caller's.
/// @param[in,out] at  index of the backslash
/// @throws Failure ExpressionSyntax for a backslash at the very end
[[nodiscard]] Escape ReadEscape(std::u16string_view pattern, std::size_t& at);

}  // namespace lexmill::platform
