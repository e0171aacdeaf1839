// SPDX-License-Identifier: MIT
// platform/text: the characters of a code page that have one byte or two.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace lexmill::platform {

/// A code of one byte from 0x80 (the byte) or of two (the first one times 256 plus the second).
using DoubleByteCode = std::uint16_t;

/// Exact mappings between 16-bit units and their codes, ASCII left out. 0 stands for none.
class DoubleByteTable {
 public:
  /// Takes the table from the machine's converter called `converter`.
  /// @throws Failure InvalidCall if there is none, or its page is not of this kind
  explicit DoubleByteTable(const std::string& converter);

  /// The unit of a code, given as a number, as two bytes, or as one byte; 0 if it has none.
  [[nodiscard]] char16_t Unit(DoubleByteCode code) const { return units_[code]; }
  [[nodiscard]] char16_t Unit(char first, char second) const {
    return units_[static_cast<std::size_t>(static_cast<unsigned char>(first) << 8 |
                                           static_cast<unsigned char>(second))];
  }
  [[nodiscard]] char16_t Unit(char single) const {
    return units_[static_cast<unsigned char>(single)];
  }
  /// The code of a unit; 0 if it has none, as all ASCII.
  [[nodiscard]] DoubleByteCode Code(char16_t unit) const { return codes_[unit]; }

 private:
  std::array<char16_t, 0x10000> units_{};
  std::array<DoubleByteCode, 0x10000> codes_{};
};

}  // namespace lexmill::platform
