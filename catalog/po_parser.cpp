// SPDX-License-Identifier: MIT
#include "catalog/po_parser.h"

#include <algorithm>
#include <utility>

#include "catalog/catalog_failure.h"
#include "catalog/po_comment.h"
#include "platform/text/columns.h"
#include "platform/text/text.h"

namespace lexmill {

PoParser::PoParser(std::u16string_view path, const platform::CodePage& page, const OnEntry& onEntry)
    : path_(path), lines_(path, page), onEntry_(onEntry) {}

bool PoParser::ReadLine() {
  if (!lines_.Next()) {
    CompleteEntry();
    return false;
  }
  TakeLine();
  return true;
}

void PoParser::ReadHeader() {
  const auto isAfterHeader = [this] {
    return part_ == Part::Target && IsHeader() && !lines_.StartsWith("\"") &&
           !lines_.StartsWith(" ") && !lines_.StartsWith("\t");
  };
  while (lines_.Next() && !isAfterHeader()) {
    TakeLine();
  }
  CompleteEntry();
}

void PoParser::TakeLine() {
  if (lines_.StartsWith("#")) {
    TakeComment(0);
  } else {
    TakeTokens();
  }
}

void PoParser::Refuse(std::u16string_view reason) const {
  RefuseCatalog(path_, lines_.Number(), reason);
}

/// Makes ready for the next entry; what holds memory keeps it.
void PoParser::Clear() {
  entry_.context.clear();
  entry_.source.clear();
  entry_.target.clear();
  entry_.kind = EntryKind::Plain;
  entry_.state = EntryState::Open;
  place_.flagLines.clear();
  place_.hasSourceOnOneLine = true;
  place_.isWrapped = false;
  place_.target = {};
  part_ = Part::None;
  hasText_ = true;
  hasContext_ = isFuzzy_ = isBlockOpen_ = hasPrevious_ = lacksIndex_ = false;
  targets_ = 0;
  sourceSize_ = 0;
}

void PoParser::TakeComment(std::size_t start) {
  CompleteEntry();
  if (!std::exchange(isBlockOpen_, true)) {
    place_.comment = lines_.Range().begin;
  }
  const std::u16string_view text = lines_.Text().substr(start);
  switch (KindOfPoComment(text)) {
    case PoCommentKind::Translator:
      place_.comment = lines_.Range().end;
      break;
    case PoCommentKind::Flags:
      isFuzzy_ = isFuzzy_ || HasFuzzyFlag(text);
      place_.flagLines.push_back(
          {{lines_.PlaceOf(start), lines_.Range().end}, std::u16string(text), lines_.End()});
      break;
    case PoCommentKind::Previous:
      if (!std::exchange(hasPrevious_, true)) {
        place_.flags = lines_.Range().begin;
      }
      break;
    case PoCommentKind::Obsolete:
      Clear();
      break;
    case PoCommentKind::Other:
      break;
  }
}

void PoParser::TakeTokens() {
  PoTokens tokens(lines_.Text());
  bool isFirst = true;
  while (true) {
    const PoToken token = tokens.Take(TextOfPart());
    if (token.kind == PoTokenKind::End) {
      if (isFirst && token.begin < token.end) {
        TakeComment(token.begin);
      } else if (isFirst) {
        isBlockOpen_ = false;
      }
      return;
    }
    isFirst = false;
    TakeToken(tokens, token);
  }
}

void PoParser::TakeToken(const PoTokens& tokens, const PoToken& token) {
  switch (token.kind) {
    case PoTokenKind::Keyword:
      return TakeKeyword(KeywordOf(tokens.Part(token)), token);
    case PoTokenKind::Text:
      return TakeText(token);
    case PoTokenKind::Index:
      return TakeIndex(tokens.Part(token));
    case PoTokenKind::OpenText:
      Refuse(u"字符串没有结束的引号");
    case PoTokenKind::WrongEscape:
      Refuse(u"字符串中有未知的转义序列");
    default:
      Refuse(u"既不是关键字，也不是字符串");
  }
}

void PoParser::TakeKeyword(PoKeyword keyword, const PoToken& token) {
  const bool isInContext = part_ == Part::Context && hasContext_;
  if (keyword == PoKeyword::Source) {
    if (isInContext) {
      RequireText();
    } else {
      BeginEntry(token);
    }
    part_ = Part::Source;
    sourceLine_ = lines_.Number();
    place_.lineEnd = lines_.End();
  } else if (keyword == PoKeyword::Target && part_ != Part::None && part_ != Part::Context) {
    BeginTarget();
  } else if (keyword == PoKeyword::Plural && part_ == Part::Source) {
    RequireText();
    entry_.kind = EntryKind::Plural;
    part_ = Part::Plural;
  } else if (keyword == PoKeyword::Context || keyword == PoKeyword::Domain) {
    BeginEntry(token);
    hasContext_ = keyword == PoKeyword::Context;
    part_ = Part::Context;
  } else {
    Refuse(u"关键字未知或不在其位");
  }
  hasText_ = false;
}

void PoParser::BeginEntry(const PoToken& token) {
  CompleteEntry();
  const std::int64_t lineBegin = lines_.Range().begin;
  const std::u16string_view before = lines_.Text().substr(0, token.begin);
  place_.beginsInLine = before.find_first_not_of(u" \t") != std::u16string_view::npos;
  const std::int64_t begin = place_.beginsInLine ? lines_.PlaceOf(token.begin) : lineBegin;
  place_.comment = isBlockOpen_ ? place_.comment : begin;
  place_.flags = hasPrevious_ ? place_.flags : begin;
  entry_.line = lines_.Number();
}

void PoParser::BeginTarget() {
  RequireText();
  const bool isPlural = entry_.kind == EntryKind::Plural;
  if (part_ == Part::Target && !isPlural) {
    Refuse(u"一个条目有两个 msgstr");
  }
  lacksIndex_ = isPlural;
  part_ = Part::Target;
}

void PoParser::TakeIndex(std::u16string_view index) {
  const std::u16string_view number = index.substr(1, index.size() - 2);
  if (!std::exchange(lacksIndex_, false) ||
      number != platform::FromUtf8(std::to_string(targets_))) {
    Refuse(u"msgstr 的序号不对");
  }
  ++targets_;
}

void PoParser::TakeText(const PoToken& token) {
  if (part_ == Part::None) {
    Refuse(u"字符串前没有关键字");
  }
  if (lacksIndex_) {
    Refuse(u"msgstr 的序号不对");
  }
  if (part_ == Part::Source) {
    TakeSourceText();
  } else if (part_ == Part::Target) {
    TakeTargetText(token);
  }
  hasText_ = true;
}

// A string that doesn't end with a line feed, and yet isn't the last one, was wrapped.
void PoParser::TakeSourceText() {
  const std::size_t before = std::exchange(sourceSize_, entry_.source.size());
  if (before > 0 && entry_.source[before - 1] != u'\n') {
    place_.isWrapped = true;
    place_.width = std::max(place_.width, columns_);
  }
  if (lines_.Number() != sourceLine_) {
    place_.hasSourceOnOneLine = false;
    columns_ = platform::Columns(lines_.Text());
  }
}

void PoParser::TakeTargetText(const PoToken& token) {
  if (targets_ <= 1) {
    place_.target.begin = hasText_ ? place_.target.begin : lines_.PlaceOf(token.begin);
    place_.target.end = lines_.PlaceOf(token.end);
  }
  if (IsHeader() && !openCharset_) {
    LookForOpenCharset();
  }
}

void PoParser::LookForOpenCharset() {
  constexpr std::u16string_view kBefore = u"charset=";
  const std::u16string_view text = lines_.Text();
  const std::size_t at = text.find(std::u16string(kBefore).append(kOpenCharset));
  if (at != std::u16string_view::npos) {
    const std::size_t begin = at + kBefore.size();
    openCharset_ = {lines_.PlaceOf(begin), lines_.PlaceOf(begin + kOpenCharset.size())};
  }
}

void PoParser::RequireText() const {
  if (!hasText_) {
    Refuse(u"关键字后没有字符串");
  }
}

// The string that a token of text goes to. Only the first form of a plural's target is kept.
std::u16string& PoParser::TextOfPart() {
  switch (part_) {
    case Part::Context:
      return entry_.context;
    case Part::Source:
      return entry_.source;
    case Part::Target:
      return targets_ <= 1 ? entry_.target : other_;
    default:
      other_.clear();
      return other_;
  }
}

void PoParser::CompleteEntry() {
  RequireText();
  const bool isDomain = part_ == Part::Context && !hasContext_;
  if (part_ != Part::None && part_ != Part::Target && !isDomain) {
    Refuse(u"条目没有 msgstr");
  }
  if (part_ == Part::Target) {
    if (entry_.source.empty()) {
      entry_.kind = EntryKind::Fixed;
    }
    if (!entry_.target.empty()) {
      entry_.state = isFuzzy_ ? EntryState::Marked : EntryState::Translated;
    }
    entry_.place = std::move(place_);
    onEntry_(entry_);
    place_ = std::move(std::get<PoPlace>(entry_.place));
  }
  if (part_ != Part::None) {
    Clear();
  }
}

}  // namespace lexmill
