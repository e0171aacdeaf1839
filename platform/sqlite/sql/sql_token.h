// SPDX-License-Identifier: MIT
// platform/sqlite/sql: the tokens of SQL text, byte by byte: enough to find where
// statements end and what they are. What they mean is libsqlite3's to say.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace lexmill::platform::sqlite {

enum class TokenKind {
  Blank,       ///< white space, a lone CR too
  Comment,     ///< from two hyphens to the line's end, or between slash-star and star-slash
  Word,        ///< keyword, plain name or number; all bytes from 0x80 belong to words
  String,      ///< between apostrophes; a doubled one begins a new token
  QuotedName,  ///< between double quotes or grave accents
  BracketedName,
  Semicolon,
  Sign,  ///< any other single byte
};

struct SqlToken {
  TokenKind kind;
  std::size_t length;    ///< in bytes, at least 1
  bool isClosed = true;  ///< false if the text ends before the token does
};

/// The token at the start of `text`, which must not be empty.
[[nodiscard]] SqlToken ReadToken(std::string_view text);

/// Calls `take(token, bytes)` for each token of `text`, in order.
template <class Take>
void ForEachToken(std::string_view text, Take take) {
  while (!text.empty()) {
    const SqlToken token = ReadToken(text);
    take(token, text.substr(0, token.length));
    text.remove_prefix(token.length);
  }
}

/// Where a token that is open ends.
/// @param opening  its first byte, or '*' for a comment between slash-star and star-slash
/// @return number of bytes of `text` that belong to it, the closing ones included; npos if it
///   stays open
[[nodiscard]] std::size_t FindTokenEnd(std::string_view text, char opening);

/// `text` without blanks and comments at its start.
[[nodiscard]] std::string_view SkipBlanks(std::string_view text);
/// `text` without blanks at its end.
[[nodiscard]] std::string_view TrimBlanksAtEnd(std::string_view text);

/// The word at the start of `text`; empty if there is none.
[[nodiscard]] std::string_view LeadingWord(std::string_view text);

/// True if `word` is `keyword`, given in capitals, but for the case of a to z.
[[nodiscard]] bool IsKeyword(std::string_view word, std::string_view keyword);
/// True if `word` is one of the keywords, under the same conditions.
[[nodiscard]] bool IsKeyword(std::string_view word, std::span<const std::string_view> keywords);

}  // namespace lexmill::platform::sqlite
