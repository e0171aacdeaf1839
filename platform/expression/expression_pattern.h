// SPDX-License-Identifier: MIT
// platform/expression: regular expressions over 16-bit units.
// From the script engine's pattern grammar to that of the matching library.
#pragma once

#include <string>
#include <string_view>

namespace lexmill::platform {

/// Checks `pattern` and writes it anew for PCRE2, which accepts more than the script engine and
/// gives meanings of its own to some letters and signs: only what the script engine knows keeps a
/// meaning, everything else becomes a literal unit.
/// @throws Failure ExpressionSyntax, UnexpectedQuantifier, ExpectedBracket, ExpectedParenthesis or
///   InvalidRange for what the script engine refuses
/// Source: published pattern syntax of the script engine
[[nodiscard]] std::u16string LibraryPattern(std::u16string_view pattern);

}  // namespace lexmill::platform
