// SPDX-License-Identifier: MIT
#include "platform/sqlite/sql/statement_text.h"

#include <algorithm>
#include <array>
#include <vector>

#include "platform/sqlite/sql/sql_token.h"

namespace lexmill::platform::sqlite {
namespace {

/// Keywords after which the list of tables is over.
constexpr std::array<std::string_view, 11> kAfterTables = {
    "SELECT", "WHERE", "GROUP",  "HAVING",    "ORDER",    "LIMIT",
    "UNION",  "SET",   "EXCEPT", "INTERSECT", "RETURNING"};

/// Words before JOIN that already say which kind of join it is.
constexpr std::array<std::string_view, 6> kJoinKinds = {"CROSS", "INNER", "LEFT",
                                                        "RIGHT", "FULL",  "OUTER"};

/// Goes over the tokens of a statement and knows at each whether it is in a list of tables,
/// where a comma and JOIN mean a join; elsewhere they are left alone. A bracket may hold a query of
/// its own, so there is one answer for each bracket that is open.
class JoinFixer {
 public:
  std::string Fix(std::string_view text) {
    ForEachToken(
        text, [this](const SqlToken& token, std::string_view bytes) { Take(token.kind, bytes); });
    return std::move(result_);
  }

 private:
  void Take(TokenKind kind, std::string_view token) {
    if (kind == TokenKind::Word) {
      TakeWord(token);
    } else if (token == "," && isInTables_.back()) {
      result_ += " CROSS JOIN ";
    } else {
      result_ += token;
    }
    if (kind == TokenKind::Sign) {
      TakeSign(token);
    }
    if (kind != TokenKind::Blank && kind != TokenKind::Comment) {
      last_ = token;
    }
  }

  void TakeWord(std::string_view word) {
    if (IsKeyword(word, "SQLITE_MASTER")) {
      result_ += kMasterAlias;
    } else if (isInTables_.back() && IsKeyword(word, "INNER")) {
      result_ += "CROSS";
    } else if (isInTables_.back() && IsKeyword(word, "JOIN") && !IsKeyword(last_, kJoinKinds)) {
      result_ += "CROSS JOIN";
    } else {
      result_ += word;
    }
    if (IsKeyword(word, "FROM")) {
      isInTables_.back() = true;
    } else if (IsKeyword(word, kAfterTables)) {
      isInTables_.back() = false;
    }
  }

  void TakeSign(std::string_view sign) {
    if (sign == "(") {
      // A bracket where a table is due holds tables; after anything else, an expression.
      const bool isTableDue =
          last_ == "," || last_ == "(" || IsKeyword(last_, "FROM") || IsKeyword(last_, "JOIN");
      isInTables_.push_back(isInTables_.back() && isTableDue);
    } else if (sign == ")" && isInTables_.size() > 1) {
      isInTables_.pop_back();
    }
  }

  std::string result_;
  std::vector<bool> isInTables_ = {false};  ///< one for each open bracket and one for the whole
  std::string_view last_;                   ///< the last token that was no blank
};

/// The keywords of plain statements.
constexpr std::array<std::string_view, 7> kPlainKeywords = {"INSERT", "INTO", "VALUES", "NULL",
                                                            "UPDATE", "SET",  "WHERE"};

/// Goes over the tokens of a statement and writes each as plain statements do.
class SpellingFixer {
 public:
  std::string Fix(std::string_view text) {
    ForEachToken(
        text, [this](const SqlToken& token, std::string_view bytes) { Take(token.kind, bytes); });
    return std::move(result_) + ';';
  }

 private:
  void Take(TokenKind kind, std::string_view token) {
    if (kind == TokenKind::Blank || kind == TokenKind::Comment) {
      isApart_ = true;
      return;
    }
    if (IsPlainName(kind, token)) {
      kind = TokenKind::Word;
      token = token.substr(1, token.size() - 2);
    }
    const auto keyword = std::ranges::find_if(
        kPlainKeywords, [token](std::string_view known) { return IsKeyword(token, known); });
    if (NeedsBlank(kind)) {
      result_ += ' ';
    }
    result_ += keyword == kPlainKeywords.end() ? token : *keyword;
    last_ = kind;
    isApart_ = false;
  }

  /// Whether a token is a name whose quotes can go.
  static bool IsPlainName(TokenKind kind, std::string_view token) {
    const bool isQuoted = kind == TokenKind::QuotedName || kind == TokenKind::BracketedName;
    return isQuoted && LeadingWord(token.substr(1)).size() + 2 == token.size();
  }

  bool NeedsBlank(TokenKind kind) const {
    const bool isAfterWord = last_ == TokenKind::Word;
    const bool isAfterText = last_ == TokenKind::String;
    return kind == TokenKind::Word ? isAfterWord || isAfterText
           : kind == TokenKind::String
               ? isAfterText && isApart_  // else one text with an apostrophe
               : isAfterWord && result_.ends_with(" VALUES");
  }

  std::string result_;
  TokenKind last_ = TokenKind::Semicolon;
  bool isApart_ = false;  ///< something that is left out comes before the next token
};

}  // namespace

std::string_view StatementBody(std::string_view text) {
  text = SkipBlanks(text);
  std::size_t end = 0;
  for (std::size_t at = 0; at < text.size();) {
    const SqlToken token = ReadToken(text.substr(at));
    at += token.length;
    if (token.kind != TokenKind::Blank && token.kind != TokenKind::Comment &&
        (token.kind != TokenKind::Semicolon || !SkipBlanks(text.substr(at)).empty())) {
      end = at;
    }
  }
  return text.substr(0, end);
}

std::string WithoutNulBytes(std::string_view text) {
  std::string result;
  bool isCut = false;  // the string whose rest comes next has ended
  ForEachToken(text, [&](const SqlToken& token, std::string_view bytes) {
    isCut = isCut && token.kind == TokenKind::String;
    const std::size_t nul = bytes.find('\0');
    if (isCut) {
      return;
    }
    isCut = token.kind == TokenKind::String && nul != std::string_view::npos;
    result.append(isCut ? bytes.substr(0, nul) : bytes).append(isCut ? "'" : "");
  });
  std::replace(result.begin(), result.end(), '\0', ' ');
  return result;
}

std::string WithFixedJoinOrder(std::string_view text) {
  return JoinFixer().Fix(text);
}

std::string WithPlainSpelling(std::string_view text) {
  SpellingFixer fixer;
  return fixer.Fix(text);
}

}  // namespace lexmill::platform::sqlite
