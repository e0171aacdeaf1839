// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// The tokens in a line of a PO file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace lexmill {

enum class PoTokenKind {
  End,            ///< of the line; a comment ends it too
  Keyword,        ///< msgid and the like: a word of letters and low lines
  Text,           ///< a string in quotes
  Index,          ///< a number in square brackets
  OpenText,       ///< a string without its closing quote
  WrongEscape,    ///< a string with a backslash sequence that doesn't exist
  WrongCharacter  ///< anything else
};

enum class PoKeyword { Context, Source, Plural, Target, Domain, Unknown };

/// The keyword that a word is.
[[nodiscard]] PoKeyword KeywordOf(std::u16string_view word);

struct PoToken {
  PoTokenKind kind = PoTokenKind::End;
  std::size_t begin = 0;  ///< units of the line
  std::size_t end = 0;
};

/// Takes a line, which is no comment, apart.
class PoTokens {
 public:
  /// @param line  kept by reference
  explicit PoTokens(std::u16string_view line) : line_(line) {}

  /// Takes the next token off. The value of a Text is appended to `text`, escapes resolved.
  [[nodiscard]] PoToken Take(std::u16string& text);

  /// The part of the line that a token of it covers.
  [[nodiscard]] std::u16string_view Part(const PoToken& token) const {
    return line_.substr(token.begin, token.end - token.begin);
  }

 private:
  [[nodiscard]] PoToken TakeText(std::u16string& text);
  [[nodiscard]] PoToken TakeIndex();
  [[nodiscard]] bool TakeEscape(std::u16string& text);
  [[nodiscard]] char16_t TakeNumber(std::size_t most, unsigned base);

  std::u16string_view line_;
  std::size_t at_ = 0;
};

/// `text` as it is written between the quotes of a string.
[[nodiscard]] std::u16string EscapedForPo(std::u16string_view text);

}  // namespace lexmill
