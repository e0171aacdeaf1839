// SPDX-License-Identifier: MIT
// platform/text: the four-byte forms of GB18030, which extend a code page to all of Unicode.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/text/double_byte_table.h"

namespace lexmill::platform {

/// The four-byte forms of all characters that a code page lacks. Where GB18030 has a two-byte form
/// for such a character and the page reads that form as another character, the two swap: the one
/// that the page lacks gets the other's four-byte form.
class FourByteForms {
 public:
  static constexpr std::size_t kLength = 4;

  explicit FourByteForms(const DoubleByteTable& page);

  /// The code point of the form at the start of `bytes`; none if there is no valid form.
  [[nodiscard]] std::optional<char32_t> Decode(std::string_view bytes) const;

  /// Writes the form of `codePoint`. @return false if it has none: the page has it, or it is a
  /// surrogate
  [[nodiscard]] bool Encode(char32_t codePoint, char* bytes) const;

 private:
  /// Forms of the Basic Multilingual Plane, counted from 81 30 81 30.
  static constexpr std::size_t kForms = 39420;
  static constexpr std::uint16_t kNone = 0xFFFF;

  std::array<char16_t, kForms> units_{};
  std::array<std::uint16_t, 0x10000> forms_;
};

}  // namespace lexmill::platform
