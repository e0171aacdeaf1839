// SPDX-License-Identifier: MIT
#include "platform/sqlite/sql/sql_token.h"

#include <algorithm>

namespace lexmill::platform::sqlite {
namespace {

constexpr auto kNone = std::string_view::npos;

bool IsBlank(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

bool IsWordByte(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
         c == '$' || static_cast<unsigned char>(c) >= 0x80;
}

std::size_t LengthOf(std::string_view text, bool (*belongs)(char)) {
  const auto end = std::find_if_not(text.begin(), text.end(), belongs);
  return static_cast<std::size_t>(end - text.begin());
}

SqlToken Enclosed(TokenKind kind, std::string_view text, std::size_t head, char opening) {
  const std::size_t rest = FindTokenEnd(text.substr(head), opening);
  return rest == kNone ? SqlToken{kind, text.size(), false} : SqlToken{kind, head + rest};
}

SqlToken Comment(std::string_view text) {
  if (text[0] == '/') {
    return Enclosed(TokenKind::Comment, text, 2, '*');
  }
  return {TokenKind::Comment, std::min(text.find('\n'), text.size())};
}

bool StartsComment(std::string_view text) {
  return text.starts_with("--") || text.starts_with("/*");
}

}  // namespace

std::size_t FindTokenEnd(std::string_view text, char opening) {
  if (opening == '*') {
    const std::size_t at = text.find("*/");
    return at == kNone ? kNone : at + 2;
  }
  const std::size_t at = text.find(opening == '[' ? ']' : opening);
  return at == kNone ? kNone : at + 1;
}

SqlToken ReadToken(std::string_view text) {
  switch (text[0]) {
    case '\'':
      return Enclosed(TokenKind::String, text, 1, '\'');
    case '"':
    case '`':
      return Enclosed(TokenKind::QuotedName, text, 1, text[0]);
    case '[':
      return Enclosed(TokenKind::BracketedName, text, 1, '[');
    case ';':
      return {TokenKind::Semicolon, 1};
    default:
      break;
  }
  if (StartsComment(text)) {
    return Comment(text);
  }
  if (IsBlank(text[0])) {
    return {TokenKind::Blank, LengthOf(text, &IsBlank)};
  }
  if (IsWordByte(text[0])) {
    return {TokenKind::Word, LengthOf(text, &IsWordByte)};
  }
  return {TokenKind::Sign, 1};
}

std::string_view SkipBlanks(std::string_view text) {
  while (!text.empty() && (IsBlank(text[0]) || StartsComment(text))) {
    text.remove_prefix(ReadToken(text).length);
  }
  return text;
}

std::string_view TrimBlanksAtEnd(std::string_view text) {
  while (!text.empty() && IsBlank(text.back())) {
    text.remove_suffix(1);
  }
  return text;
}

std::string_view LeadingWord(std::string_view text) {
  return text.substr(0, LengthOf(text, &IsWordByte));
}

bool IsKeyword(std::string_view word, std::string_view keyword) {
  return std::equal(word.begin(), word.end(), keyword.begin(), keyword.end(), [](char a, char b) {
    return (a >= 'a' && a <= 'z' ? a - 'a' + 'A' : static_cast<int>(a)) == b;
  });
}

bool IsKeyword(std::string_view word, std::span<const std::string_view> keywords) {
  return std::ranges::any_of(keywords,
                             [word](std::string_view keyword) { return IsKeyword(word, keyword); });
}

}  // namespace lexmill::platform::sqlite
