// SPDX-License-Identifier: MIT
#include "platform/sqlite/upper.h"

#include <cstddef>

#include "platform/text/text.h"

namespace lexmill::platform::sqlite {
namespace {

bool IsAscii(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}

/// Appends the capital of one character that is more than ASCII.
void AppendCapital(std::string_view character, const CodePage& page, std::string& upper) {
  std::u16string text;
  page.Decode(character, text);
  const char16_t capital = text.size() == 1 ? UpperCase(text[0]) : u'\0';
  if (text.size() != 1 || capital == text[0] || !page.Encode({&capital, 1}, upper)) {
    upper.append(character);
  }
}

}  // namespace

void AppendUpper(std::string_view bytes, const CodePage& page, std::string& upper) {
  while (!bytes.empty()) {
    if (IsAscii(bytes[0])) {
      upper.push_back(bytes[0] >= 'a' && bytes[0] <= 'z' ? static_cast<char>(bytes[0] - 'a' + 'A')
                                                         : bytes[0]);
      bytes.remove_prefix(1);
    } else {
      const std::size_t length = page.CharacterLength(bytes);
      AppendCapital(bytes.substr(0, length), page, upper);
      bytes.remove_prefix(length);
    }
  }
}

}  // namespace lexmill::platform::sqlite
