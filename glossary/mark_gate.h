// SPDX-License-Identifier: MIT
// glossary: the stages for glossaries, and what all stages share.
// A quick look at a string, by which most rules find out that they have nothing to do.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/text.h"

namespace lexmill {

/// Which first units of the rules' marks a text holds.
class MarkGate {
 public:
  MarkGate() = default;

  explicit MarkGate(std::u16string_view text) {
    if (text.size() < kBlock) {
      for (const char16_t unit : text) {
        Add(unit);
      }
      return;
    }
    const std::size_t lastBlock = text.size() - kBlock;
    for (std::size_t at = 0; at < lastBlock; at += kBlock) {
      AddBlock(text.data() + at);
    }
    AddBlock(text.data() + lastBlock);  // looking at a unit twice changes nothing
  }

  /// True if `text` holds `mark`.
  /// @param text  the gate's text or what the rules have left of it
  /// @param mark  begins with one of the units below
  [[nodiscard]] bool Holds(std::u16string_view text, std::u16string_view mark) const {
    return (bits_ & BitOf(mark.front())) != 0 && platform::Contains(text, mark);
  }

 private:
  static constexpr std::size_t kBlock = 8;

  void Add(char16_t unit) { bits_ = static_cast<std::uint16_t>(bits_ | BitOf(unit)); }

  /// Asks every unit about every mark, since the compiler then looks at all units in one step.
  void AddBlock(const char16_t* units) {
    for (std::size_t i = 0; i < kBlock; ++i) {
      Add(units[i]);
    }
  }

  static constexpr std::uint16_t BitOf(char16_t unit) {
    return static_cast<std::uint16_t>((unit == u'\\' ? 1 : 0) | (unit == u'&' ? 2 : 0) |
                                      (unit == u':' ? 4 : 0) | (unit == u'.' ? 8 : 0) |
                                      (unit == u'：' ? 16 : 0) | (unit == u'…' ? 32 : 0));
  }

  std::uint16_t bits_ = 0;
};

}  // namespace lexmill
