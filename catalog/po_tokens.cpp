// SPDX-License-Identifier: MIT
#include "catalog/po_tokens.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/text/text.h"

namespace lexmill {
namespace {

constexpr std::u16string_view kBlanks = u" \t\r\f\v\b";
// What follows the backslash, and what it stands for.
constexpr std::u16string_view kEscapes = u"nt\"\\rabvf";
constexpr std::u16string_view kMeanings = u"\n\t\"\\\r\a\b\v\f";

bool IsWordUnit(char16_t unit) {
  return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || unit == u'_';
}

// The value of a digit; 16 for what is none.
unsigned DigitValue(char16_t unit) {
  constexpr std::u16string_view kDigits = u"0123456789abcdef";
  const char16_t small = unit >= u'A' && unit <= u'F' ? static_cast<char16_t>(unit + 32) : unit;
  return static_cast<unsigned>(std::min<std::size_t>(kDigits.find(small), kDigits.size()));
}

constexpr std::pair<std::u16string_view, PoKeyword> kKeywords[] = {
    {u"msgid", PoKeyword::Source},        {u"msgstr", PoKeyword::Target},
    {u"msgctxt", PoKeyword::Context},     {u"domain", PoKeyword::Domain},
    {u"msgid_plural", PoKeyword::Plural},
};

}  // namespace

PoKeyword KeywordOf(std::u16string_view word) {
  const auto* const found = std::find_if(std::begin(kKeywords), std::end(kKeywords),
                                         [word](const auto& known) { return known.first == word; });
  return found == std::end(kKeywords) ? PoKeyword::Unknown : found->second;
}

PoToken PoTokens::Take(std::u16string& text) {
  at_ = std::min(line_.find_first_not_of(kBlanks, at_), line_.size());
  const std::size_t begin = at_;
  if (at_ == line_.size() || line_[at_] == u'#') {
    return {PoTokenKind::End, begin, line_.size()};
  }
  if (line_[at_] == u'"') {
    return TakeText(text);
  }
  if (line_[at_] == u'[') {
    return TakeIndex();
  }
  while (at_ < line_.size() && IsWordUnit(line_[at_])) {
    ++at_;
  }
  return {at_ > begin ? PoTokenKind::Keyword : PoTokenKind::WrongCharacter, begin, at_};
}

PoToken PoTokens::TakeText(std::u16string& text) {
  const std::size_t begin = at_++;
  for (std::size_t quote = begin; true;) {
    quote = quote < at_ ? platform::Find(line_, u'"', at_) : quote;
    const std::size_t stop = platform::Find(line_.substr(0, quote), u'\\', at_);
    if (stop == line_.size()) {
      return {PoTokenKind::OpenText, begin, line_.size()};
    }
    text += line_.substr(at_, stop - at_);
    at_ = stop + 1;
    if (stop == quote) {
      return {PoTokenKind::Text, begin, at_};
    }
    if (!TakeEscape(text)) {
      return {PoTokenKind::WrongEscape, begin, at_};
    }
  }
}

bool PoTokens::TakeEscape(std::u16string& text) {
  const char16_t escape = at_ < line_.size() ? line_[at_] : u'\0';
  if (const std::size_t known = kEscapes.find(escape); known != std::u16string_view::npos) {
    text += kMeanings[known];
    ++at_;
    return true;
  }
  constexpr std::size_t kAll = static_cast<std::size_t>(-1);
  const bool isHexadecimal = escape == u'x' && at_ + 1 < line_.size();
  if (isHexadecimal && DigitValue(line_[at_ + 1]) < 16) {
    ++at_;
    text += TakeNumber(kAll, 16);
    return true;
  }
  if (DigitValue(escape) < 8) {
    text += TakeNumber(3, 8);
    return true;
  }
  return false;
}

// A character by its number in the file's charset, of which only ASCII is in use.
char16_t PoTokens::TakeNumber(std::size_t most, unsigned base) {
  unsigned value = 0;
  for (std::size_t i = 0; i < most && at_ < line_.size() && DigitValue(line_[at_]) < base; ++i) {
    value = (value * base + DigitValue(line_[at_++])) & 0xFFU;
  }
  return static_cast<char16_t>(value);
}

PoToken PoTokens::TakeIndex() {
  const std::size_t begin = at_;
  const std::size_t end = line_.find(u']', begin);
  const bool isClosed = end != std::u16string_view::npos;
  at_ = isClosed ? end + 1 : line_.size();
  return {isClosed ? PoTokenKind::Index : PoTokenKind::WrongCharacter, begin, at_};
}

std::u16string EscapedForPo(std::u16string_view text) {
  std::u16string escaped;
  for (const char16_t unit : text) {
    const std::size_t known = kMeanings.find(unit);
    if (known != std::u16string_view::npos) {
      escaped += u'\\';
    }
    escaped += known != std::u16string_view::npos ? kEscapes[known] : unit;
  }
  return escaped;
}

}  // namespace lexmill
