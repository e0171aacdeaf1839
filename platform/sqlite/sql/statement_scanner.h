// SPDX-License-Identifier: MIT
// platform/sqlite/sql: where statements end.
#pragma once

#include <string_view>

namespace lexmill::platform::sqlite {

/// Finds the ends of statements in text that may arrive in pieces, each byte looked at once. Knows
/// strings, quoted names, comments, and that a trigger ends after its own END. A piece ends at a
/// line's end or at the end of all text.
class StatementScanner {
 public:
  /// Reads `text` from its first byte on, up to the semicolon that ends a statement.
  /// @return number of bytes read, that semicolon included; npos if `text` holds no end
  [[nodiscard]] std::size_t ReadStatement(std::string_view text);

  /// True if nothing but blanks and comments came since the last end, and no comment is open.
  [[nodiscard]] bool IsBetweenStatements() const { return head_ == Head::Start && !IsInside(); }

  /// True inside a string, a quoted name or a comment.
  [[nodiscard]] bool IsInside() const { return opening_ != '\0'; }

 private:
  /// What the words of the statement so far say of its end.
  enum class Head { Start, Create, Other, Trigger, TriggerSemicolon, TriggerEnd };

  [[nodiscard]] bool ReadToken(std::string_view text, std::size_t& at);
  void ReadWord(std::string_view word);
  [[nodiscard]] bool ReadSemicolon();

  char opening_ = '\0';  ///< of the token that the last piece left open, as FindTokenEnd takes it
  Head head_ = Head::Start;
};

}  // namespace lexmill::platform::sqlite
