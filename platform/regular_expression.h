// SPDX-License-Identifier: MIT
// platform: regular expressions over 16-bit units, in the published grammar of the script engine.
// Stands for: VBScript.RegExp 5.5 with its default flags (case counts, first match only, "^" and
// "$" are the ends of the text).
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace lexmill::platform {

/// A regular expression object. A pattern is compiled at its first use and kept, so that setting
/// the same few patterns again and again is cheap. Texts may have any length.
class RegExp {
 public:
  RegExp();
  RegExp(RegExp&&) noexcept;
  RegExp& operator=(RegExp&&) noexcept;
  ~RegExp();

  [[nodiscard]] std::u16string Pattern() const;
  /// Accepts any text; a bad pattern fails at its first use.
  void Pattern(std::u16string_view pattern);

  /// True if the pattern matches anywhere in `text`.
  /// @throws Failure ExpressionSyntax, UnexpectedQuantifier, ExpectedBracket, ExpectedParenthesis
  /// or
  ///   InvalidRange for a bad pattern, OutOfMemory if a match needs more than the machine has
  [[nodiscard]] bool Test(std::u16string_view text) const;

  /// `text` with its first match replaced; `text` itself if there is none. In `replacement` $1 to
  /// $99 stand for groups, $& $` $' for the match and what is before and behind it, $$ for a
  /// dollar; anything else is literal. @throws as Test
  [[nodiscard]] std::u16string Replace(std::u16string_view text,
                                       std::u16string_view replacement) const;

  /// The groups of the first match, group 0 being the whole; empty if there is no match. A group
  /// that takes no part is an empty view. The views share the life of `text`; the span lives until
  /// the next call on this object. @throws as Test
  [[nodiscard]] std::span<const std::u16string_view> Execute(std::u16string_view text) const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace lexmill::platform
