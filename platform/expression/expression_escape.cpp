// SPDX-License-Identifier: MIT
#include "platform/expression/expression_escape.h"

#include <optional>

#include "platform/failure.h"

namespace lexmill::platform {
namespace {

std::optional<unsigned> DigitValue(char16_t unit, unsigned base) {
  unsigned value = base;
  if (unit >= u'0' && unit <= u'9') {
    value = unit - unsigned{u'0'};
  } else if ((unit | 0x20) >= u'a' && (unit | 0x20) <= u'f') {
    value = (unit | 0x20U) - unsigned{u'a'} + 10;
  }
  return value < base ? std::optional(value) : std::nullopt;
}

/// The number that the first `count` units of `text` spell; none if they are not all digits.
std::optional<char16_t> Number(std::u16string_view text, std::size_t count, unsigned base) {
  if (text.size() < count) {
    return std::nullopt;
  }
  unsigned number = 0;
  for (const char16_t unit : text.substr(0, count)) {
    const auto digit = DigitValue(unit, base);
    if (!digit) {
      return std::nullopt;
    }
    number = number * base + *digit;
  }
  return static_cast<char16_t>(number);
}

/// \x41 and \u0041: the digits after the letter, or the letter itself.
Escape Hexadecimal(std::u16string_view pattern, std::size_t& at, std::size_t digits) {
  if (const auto number = Number(pattern.substr(at + 1), digits, 16)) {
    at += 1 + digits;
    return {.unit = *number};
  }
  return {.unit = pattern[at++]};
}

/// One to three octal digits, at most \377.
Escape Octal(std::u16string_view pattern, std::size_t& at) {
  const std::size_t longest = pattern[at] <= u'3' ? 3 : 2;
  for (std::size_t digits = longest; digits > 0; --digits) {
    if (const auto number = Number(pattern.substr(at), digits, 8)) {
      at += digits;
      return {.unit = *number};
    }
  }
  return {.unit = pattern[at++]};
}

/// \cA to \cZ: the control character; before anything else the letter c itself.
Escape Control(std::u16string_view pattern, std::size_t& at) {
  const char16_t letter = at + 1 < pattern.size() ? pattern[at + 1] | 0x20 : u'\0';
  if (letter < u'a' || letter > u'z') {
    return {.unit = pattern[at++]};
  }
  at += 2;
  return {.unit = static_cast<char16_t>(letter & 0x1F)};
}

/// The unit that a letter alone stands for.
char16_t NamedUnit(char16_t letter) {
  switch (letter) {
    case u'f':
      return u'\f';
    case u'n':
      return u'\n';
    case u'r':
      return u'\r';
    case u't':
      return u'\t';
    case u'v':
      return u'\v';
    default:
      return letter;
  }
}

}  // namespace

Escape ReadEscape(std::u16string_view pattern, std::size_t& at) {
  ++at;
  if (at == pattern.size()) {
    throw Failure(FailureNumber::ExpressionSyntax, FailureOrigin::ScriptLibrary);
  }
  const char16_t unit = pattern[at];
  if (unit >= u'0' && unit <= u'7') {
    return Octal(pattern, at);
  }
  switch (unit) {
    case u'x':
      return Hexadecimal(pattern, at, 2);
    case u'u':
      return Hexadecimal(pattern, at, 4);
    case u'c':
      return Control(pattern, at);
    default:
      ++at;
      return {.unit = NamedUnit(unit),
              .isSet = std::u16string_view(u"dDwWsS").find(unit) != std::u16string_view::npos};
  }
}

}  // namespace lexmill::platform
