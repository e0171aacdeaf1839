// SPDX-License-Identifier: MIT
// platform/expression: regular expressions over 16-bit units, in the published grammar of the
// script engine. Stands for: VBScript.RegExp 5.5 with its default flags (case counts, first match
// only, "^" and
// "$" are the ends of the text).
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace lexmill::platform {

/// A regular expression object. A pattern is compiled at its first use and kept, so that setting
/// the same few patterns again and again is cheap. Texts may have any length; a text that was too
/// long for the machine's stack gives the memory that it took back at once.
class RegExp {
 public:
  RegExp();
  RegExp(RegExp&&) noexcept;
  RegExp& operator=(RegExp&&) noexcept;
  ~RegExp();

  /// The pattern set last; empty at first, and an empty pattern matches everywhere.
  [[nodiscard]] std::u16string Pattern() const;
  /// Accepts any text; a bad pattern fails at each of its uses.
  void Pattern(std::u16string_view pattern);

  /// True if the pattern matches anywhere in `text`.
  /// @throws Failure ExpressionSyntax, UnexpectedQuantifier, ExpectedBracket, ExpectedParenthesis
  ///   or InvalidRange for a bad pattern; ExpressionSyntax with a description of its own for a
  ///   pattern that would go on trying `text` for minutes, as (a+)+$ does; OutOfMemory if a match
  ///   needs more than the machine has
  [[nodiscard]] bool Test(std::u16string_view text) const;

  /// `text` with its first match replaced; `text` itself if there is none. In `replacement` $1 to
  /// $99 stand for groups, $& $` $' for the match and what is before and after it, $$ for a
  /// dollar; anything else is literal. @throws as Test
  [[nodiscard]] std::u16string Replace(std::u16string_view text,
                                       std::u16string_view replacement) const;

  /// As Replace, into a buffer that the caller keeps: `result` becomes `text` with its first match
  /// replaced. `text` may not be a view of `result`. @throws as Test
  /// @return false if there is no match; `result` is then as it was
  [[nodiscard]] bool ReplaceInto(std::u16string_view text, std::u16string_view replacement,
                                 std::u16string& result) const;

  /// The groups of the first match, group 0 being the whole; empty if there is no match. A group
  /// that takes no part is an empty view. The views share the life of `text`; the span lives until
  /// the next call on this object. @throws as Test
  [[nodiscard]] std::span<const std::u16string_view> Execute(std::u16string_view text) const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace lexmill::platform
