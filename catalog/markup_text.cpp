// SPDX-License-Identifier: MIT
#include "catalog/markup_text.h"

#include <algorithm>
#include <string>

#include "platform/text/text.h"

namespace lexmill {
namespace {

constexpr std::u16string_view kBlanks = u" \t\r\n";

/// An attribute in a tag, which is known to be well-formed.
struct AttributeSpan {
  std::size_t begin = 0;  ///< the blanks before it
  std::size_t end = 0;    ///< after its second quote
  std::u16string_view name;
  std::size_t valueBegin = 0;
};

std::size_t NameEnd(std::u16string_view tag) {
  return std::min(tag.find_first_of(u" \t\r\n/>"), tag.size());
}

// The attribute that begins at `from`; its end is its begin if there is none.
AttributeSpan NextAttribute(std::u16string_view tag, std::size_t from) {
  const std::size_t begin = tag.find_first_not_of(kBlanks, from);
  const std::size_t sign = tag.find(u'=', from);
  if (begin == std::u16string_view::npos || sign == std::u16string_view::npos ||
      tag[begin] == u'/' || tag[begin] == u'>') {
    return {from, from, {}, from};
  }
  const std::size_t quote = tag.find_first_of(u"\"'", sign);
  const std::size_t close = tag.find(tag[quote], quote + 1);
  const std::size_t nameEnd = std::min(tag.find_first_of(kBlanks, begin), sign);
  return {from, close + 1, tag.substr(begin, nameEnd - begin), quote + 1};
}

// The attribute `name`, or, if there is none, an empty one after the last.
AttributeSpan FindAttribute(std::u16string_view tag, std::u16string_view name, char16_t& quote) {
  AttributeSpan span = NextAttribute(tag, NameEnd(tag));
  while (span.end > span.begin) {
    quote = tag[span.valueBegin - 1];
    if (span.name == name) {
      return span;
    }
    span = NextAttribute(tag, span.end);
  }
  return span;
}

std::u16string Hexadecimal(char32_t number) {
  constexpr std::u16string_view kDigits = u"0123456789abcdef";
  std::u16string digits;
  for (char32_t rest = number; rest > 0 || digits.empty(); rest /= 16) {
    digits.insert(digits.begin(), kDigits[rest % 16]);
  }
  return digits;
}

// What `character` is written as in any case; empty if it may stand for itself.
std::u16string_view NamedReference(char16_t character, bool escapesQuotes) {
  switch (character) {
    case u'&':
      return u"&amp;";
    case u'<':
      return u"&lt;";
    case u'>':
      return u"&gt;";
    case u'"':
      return escapesQuotes ? u"&quot;" : u"";
    case u'\'':
      return escapesQuotes ? u"&apos;" : u"";
    default:
      return {};
  }
}

// The first character of `text`, which is cut off; a lone half of a pair by its own number.
char32_t TakeCharacter(std::u16string_view& text) {
  constexpr auto kIsHalf = [](char16_t unit, unsigned kind) { return (unit & 0xFC00U) == kind; };
  const char16_t first = text[0];
  const bool isPair = text.size() > 1 && kIsHalf(first, 0xD800) && kIsHalf(text[1], 0xDC00);
  const char32_t character =
      isPair ? 0x10000U + ((first & 0x3FFU) << 10U) + (text[1] & 0x3FFU) : char32_t{first};
  text.remove_prefix(isPair ? 2 : 1);
  return character;
}

// Source: the characters of XML 1.0, production 2
bool IsXmlCharacter(char32_t character) {
  if (character < 0x20) {
    return character == u'\t' || character == u'\n' || character == u'\r';
  }
  const bool isHalf = character >= 0xD800 && character <= 0xDFFF;
  return !isHalf && character != 0xFFFE && character != 0xFFFF;
}

}  // namespace

std::u16string EscapedForMarkup(std::u16string_view text, const MarkupPlace& place) {
  constexpr std::u16string_view kReplacement = u"\uFFFD";
  std::u16string escaped;
  std::string bytes;
  while (!text.empty()) {
    std::u16string_view rest = text;
    const char32_t character = TakeCharacter(rest);
    const std::u16string_view written = text.substr(0, text.size() - rest.size());
    text = rest;
    const auto named = NamedReference(written[0], place.escapesQuotes);
    const bool isControl = character < 0x20 && character != u'\t' && character != u'\n';
    if (!named.empty()) {
      escaped += named;
    } else if (isControl && place.language == MarkupPlace::Language::Ts) {
      escaped += u"<byte value=\"x" + Hexadecimal(character) + u"\"/>";
    } else if (!IsXmlCharacter(character)) {
      escaped += kReplacement;
    } else if (!isControl && place.page->Encode(written, bytes)) {
      escaped += written;
    } else {
      escaped += u"&#x" + Hexadecimal(character) + u";";
    }
  }
  return escaped;
}

std::u16string WithAttribute(std::u16string_view tag, std::u16string_view name,
                             std::u16string_view value) {
  char16_t quote = u'"';
  const AttributeSpan span = FindAttribute(tag, name, quote);
  std::u16string result(tag);
  if (span.end > span.begin) {
    return result.replace(span.valueBegin, span.end - 1 - span.valueBegin, value);
  }
  return result.insert(span.begin,
                       u" " + std::u16string(name) + u"=" + quote + std::u16string(value) + quote);
}

std::u16string WithoutAttribute(std::u16string_view tag, std::u16string_view name) {
  char16_t quote = u'"';
  const AttributeSpan span = FindAttribute(tag, name, quote);
  return std::u16string(tag).erase(span.begin, span.end - span.begin);
}

std::u16string_view NameInTag(std::u16string_view tag) {
  return tag.substr(1, NameEnd(tag) - 1);
}

bool IsEmptyTag(std::u16string_view tag) {
  return tag.ends_with(u"/>");
}

std::u16string OpenedTag(std::u16string_view tag) {
  tag.remove_suffix(2);
  const std::size_t last = tag.find_last_not_of(kBlanks);
  return std::u16string(tag.substr(0, last + 1)) + u">";
}

}  // namespace lexmill
