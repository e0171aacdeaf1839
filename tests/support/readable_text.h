// SPDX-License-Identifier: MIT
// tests/support: a small world for tests.
#pragma once

#include <string>
#include <string_view>

#include "platform/text/text.h"

namespace lexmill::test {

/// 16-bit text as a failed comparison can show it: UTF-8, each lone surrogate as its hexadecimal
/// number in angle brackets.
[[nodiscard]] inline std::string Readable(std::u16string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    const bool pair = unit >= 0xD800 && unit < 0xDC00 && i + 1 < text.size() &&
                      text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000;
    if (unit >= 0xD800 && unit < 0xE000 && !pair) {
      constexpr std::string_view kDigits = "0123456789ABCDEF";
      result += '<';
      for (int shift = 12; shift >= 0; shift -= 4) {
        result += kDigits[static_cast<std::size_t>(unit >> shift) & 15U];
      }
      result += '>';
    } else {
      result += platform::ToUtf8(text.substr(i, pair ? 2 : 1));
      i += pair ? 1 : 0;
    }
  }
  return result;
}

}  // namespace lexmill::test
