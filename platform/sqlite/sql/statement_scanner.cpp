// SPDX-License-Identifier: MIT
// A semicolon ends a statement unless it is inside a token, or in a trigger. A trigger holds
// statements of its own and ends with `;`, END, `;`, so the scanner has to know that it is in one:
// the first words show that (Head). All that is kept from one piece of text to the next is that
// state and the token that the last piece left open, so no byte is looked at twice, however long a
// statement is.
#include "platform/sqlite/sql/statement_scanner.h"

#include <array>

#include "platform/sqlite/sql/sql_token.h"

namespace lexmill::platform::sqlite {
namespace {

constexpr auto kNone = std::string_view::npos;

/// The bytes that can begin a token in which a semicolon means nothing, and the semicolon: once a
/// statement is known to be no trigger, its words need not be read.
constexpr auto kMatters = [] {
  std::array<bool, 256> result{};
  for (const char c : {'\'', '"', '`', '[', '-', '/', ';'}) {
    result[static_cast<unsigned char>(c)] = true;
  }
  return result;
}();

std::size_t SkipPlainBytes(std::string_view text, std::size_t at) {
  while (at < text.size() && !kMatters[static_cast<unsigned char>(text[at])]) {
    ++at;
  }
  return at;
}

}  // namespace

std::size_t StatementScanner::ReadStatement(std::string_view text) {
  std::size_t at = 0;
  if (IsInside()) {
    at = FindTokenEnd(text, opening_);
    if (at == kNone) {
      return kNone;
    }
    opening_ = '\0';
  }
  while (at < text.size()) {
    if (ReadToken(text, at)) {
      return at;
    }
    if (head_ == Head::Other) {
      at = SkipPlainBytes(text, at);
    }
  }
  return kNone;
}

/// Reads one token and moves `at` past it; true if it ends a statement.
bool StatementScanner::ReadToken(std::string_view text, std::size_t& at) {
  const SqlToken token = sqlite::ReadToken(text.substr(at));
  const std::string_view bytes = text.substr(at, token.length);
  at += token.length;
  switch (token.kind) {
    case TokenKind::Semicolon:
      return ReadSemicolon();
    case TokenKind::Blank:
      return false;
    case TokenKind::Comment:
      opening_ = token.isClosed ? '\0' : '*';
      return false;
    case TokenKind::Word:
      ReadWord(bytes);
      return false;
    default:
      ReadWord({});
      opening_ = token.isClosed ? '\0' : bytes[0];
      return false;
  }
}

/// Takes the next word of the statement, an empty one for a token that is none.
void StatementScanner::ReadWord(std::string_view word) {
  switch (head_) {
    case Head::Start:
      head_ = IsKeyword(word, "CREATE") ? Head::Create : Head::Other;
      break;
    case Head::Create:
      if (!IsKeyword(word, "TEMP") && !IsKeyword(word, "TEMPORARY")) {
        head_ = IsKeyword(word, "TRIGGER") ? Head::Trigger : Head::Other;
      }
      break;
    case Head::Other:
      break;
    case Head::Trigger:
    case Head::TriggerSemicolon:
    case Head::TriggerEnd:
      head_ = head_ == Head::TriggerSemicolon && IsKeyword(word, "END") ? Head::TriggerEnd
                                                                        : Head::Trigger;
      break;
  }
}

bool StatementScanner::ReadSemicolon() {
  if (head_ == Head::Trigger || head_ == Head::TriggerSemicolon) {
    head_ = Head::TriggerSemicolon;
    return false;
  }
  head_ = Head::Start;
  return true;
}

}  // namespace lexmill::platform::sqlite
