// SPDX-License-Identifier: MIT
// A byte that is not ASCII is the first of a pair, or a character alone, or the first of a
// four-byte form; if it is none of these it survives as itself. At most one of the three fits: no
// byte both begins a pair and is a character, and the second byte of a form is a digit, as in no
// pair.
#include "platform/text/table_page.h"

#include <array>

#include <unicode/utf16.h>

#include "platform/text/ascii_runs.h"

namespace lexmill::platform {

TablePage::TablePage(const std::string& converter, bool hasFourByteForms)
    : table_(converter), hasFourByteForms_(hasFourByteForms) {}

void TablePage::Decode(std::string_view bytes, std::u16string& text) const {
  DecodeRuns(bytes, text, [this](std::string_view from, std::size_t& at, char16_t*& out) {
    TakeCharacter(from, at, out);
  });
}

bool TablePage::Encode(std::u16string_view text, std::string& bytes) const {
  return EncodeRuns(text, bytes, [this](std::u16string_view from, std::size_t& at, char*& out) {
    return TakeUnit(from, at, out);
  });
}

std::size_t TablePage::CharacterLength(std::string_view bytes) const {
  if (static_cast<unsigned char>(bytes.front()) < 0x80) {
    return 1;
  }
  std::array<char16_t, 2> units;
  char16_t* out = units.data();
  std::size_t length = 0;
  TakeCharacter(bytes, length, out);
  return length;
}

inline void TablePage::TakeCharacter(std::string_view bytes, std::size_t& at,
                                     char16_t*& out) const {
  const char first = bytes[at];
  const char16_t pair = at + 1 < bytes.size() ? table_.Unit(first, bytes[at + 1]) : u'\0';
  if (pair != 0) {
    *out++ = pair;
    at += 2;
  } else if (const char16_t single = table_.Unit(first); single != 0) {
    *out++ = single;
    ++at;
  } else if (const auto codePoint = FourByteCharacter(bytes.substr(at)); codePoint) {
    out = WriteUtf16(*codePoint, out);
    at += FourByteForms::kLength;
  } else {
    *out++ = SurvivingByte(first);
    ++at;
  }
}

// Nearly every unit has a code in the table, so the rest is asked for only after that: a byte that
// decoding let survive, and a character in four bytes.
inline bool TablePage::TakeUnit(std::u16string_view text, std::size_t& at, char*& out) const {
  const DoubleByteCode code = table_.Code(text[at]);
  if (code > 0xFF) {
    *out++ = static_cast<char>(code >> 8);
  }
  if (code != 0) {
    *out++ = static_cast<char>(code & 0xFF);
    ++at;
    return true;
  }
  char32_t codePoint = 0;
  U16_NEXT(text.data(), at, text.size(), codePoint);
  if (IsSurvivingByte(codePoint)) {
    *out++ = static_cast<char>(codePoint - kSurvivingByte);
    return true;
  }
  if (!hasFourByteForms_ || !Forms().Encode(codePoint, out)) {
    return false;
  }
  out += FourByteForms::kLength;
  return true;
}

std::optional<char32_t> TablePage::FourByteCharacter(std::string_view bytes) const {
  return hasFourByteForms_ ? Forms().Decode(bytes) : std::nullopt;
}

// Most texts never need the four-byte forms, so they are built when the first one does.
const FourByteForms& TablePage::Forms() const {
  if (forms_ == nullptr) {
    forms_ = std::make_unique<const FourByteForms>(table_);
  }
  return *forms_;
}

}  // namespace lexmill::platform
