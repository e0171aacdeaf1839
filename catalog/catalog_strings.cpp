// SPDX-License-Identifier: MIT
#include "catalog/catalog_strings.h"

#include <cstdint>

namespace lexmill {
namespace {

constexpr char16_t kAmpersand = u'&';
constexpr std::u16string_view kEscaped = u"\n\t\r\\";
constexpr std::u16string_view kLetters = u"ntr\\";

// Two of `mark` become one, one becomes `other`, and `other` becomes two of itself. The same with
// the marks exchanged is the way back.
std::u16string ExchangeMarks(std::u16string_view text, char16_t mark, char16_t other) {
  std::u16string exchanged;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool isDouble = text.substr(at, 2) == std::u16string(2, mark);
    if (isDouble) {
      exchanged += mark;
      ++at;
    } else if (text[at] == mark) {
      exchanged += other;
    } else if (text[at] == other) {
      exchanged.append(2, other);
    } else {
      exchanged += text[at];
    }
  }
  return exchanged;
}

// Cheaper to ask of every unit than which escape it is. Without branches, and in the width of a
// unit, the compiler asks it of eight at once.
bool MayNeedEscape(std::u16string_view text) {
  std::uint16_t mayNeed = 0;
  for (const char16_t unit : text) {
    const bool isControl = unit < u' ';
    const bool isBackslash = unit == u'\\';
    mayNeed |= static_cast<std::uint16_t>(isControl | isBackslash);
  }
  return mayNeed != 0;
}

std::u16string Escaped(std::u16string_view text) {
  std::u16string escaped;
  for (const char16_t unit : text) {
    const std::size_t known = kEscaped.find(unit);
    if (known == std::u16string_view::npos) {
      escaped += unit;
    } else {
      escaped.append({u'\\', kLetters[known]});
    }
  }
  return escaped;
}

std::u16string Unescaped(std::u16string_view text) {
  std::u16string plain;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool mayBeEscape = text[at] == u'\\' && at + 1 < text.size();
    const std::size_t known = mayBeEscape ? kLetters.find(text[at + 1]) : std::u16string_view::npos;
    if (known == std::u16string_view::npos) {
      plain += text[at];
    } else {
      plain += kEscaped[known];
      ++at;
    }
  }
  return plain;
}

}  // namespace

std::u16string_view ToDictionary(std::u16string_view text, char16_t accelerator,
                                 std::u16string& room) {
  if (accelerator != kAmpersand) {
    return room = Escaped(ExchangeMarks(text, accelerator, kAmpersand));
  }
  return MayNeedEscape(text) ? room = Escaped(text) : text;
}

std::u16string FromDictionary(std::u16string_view text, char16_t accelerator) {
  return Unescaped(WithAccelerator(text, accelerator));
}

std::u16string WithAccelerator(std::u16string_view text, char16_t accelerator) {
  return accelerator == kAmpersand ? std::u16string(text)
                                   : ExchangeMarks(text, kAmpersand, accelerator);
}

std::u16string TurnEnding(std::u16string_view source, std::u16string target,
                          std::span<const Ending> endings) {
  for (const Ending& ending : endings) {
    if (source.ends_with(ending.from)) {
      if (target.ends_with(ending.from)) {
        target.replace(target.size() - ending.from.size(), ending.from.size(), ending.to);
      }
      break;
    }
  }
  return target;
}

}  // namespace lexmill
