// SPDX-License-Identifier: MIT
#include "platform/text/text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include <unicode/uchar.h>

#include "platform/text/utf8.h"

namespace lexmill::platform {
namespace {

constexpr std::size_t kUnits = 0x10000;

/// Letters that have a capital in Unicode's simple mapping and stay as they are in the platform's.
/// Source: compared unit by unit with the platform's table.
bool StaysSmall(char16_t unit) {
  constexpr auto kStaying = std::to_array<char16_t>(
      {0x00B5, 0x0131, 0x017F, 0x01C5, 0x01C8, 0x01CB, 0x01F2, 0x0345, 0x03C2,
       0x03D0, 0x03D1, 0x03D5, 0x03D6, 0x03F0, 0x03F1, 0x03F5, 0x1C80, 0x1C81,
       0x1C82, 0x1C83, 0x1C84, 0x1C85, 0x1C86, 0x1C87, 0x1C88, 0x1E9B, 0x1FBE});
  return std::ranges::binary_search(kStaying, unit);
}

const std::array<char16_t, kUnits>& Capitals() {
  static const auto capitals = [] {
    std::array<char16_t, kUnits> table;
    for (std::size_t i = 0; i < kUnits; ++i) {
      const auto unit = static_cast<char16_t>(i);
      table[i] = StaysSmall(unit) ? unit : static_cast<char16_t>(u_toupper(unit));
    }
    return table;
  }();
  return capitals;
}

/// Units that are looked at in one step: two words of four.
constexpr std::size_t kBlockUnits = 8;
/// One in each unit of a word.
constexpr std::uint64_t kOnes = 0x0001'0001'0001'0001;

/// True if one of the block's units is that of which `sought` holds four. A unit that is equal
/// becomes zero, and subtracting one borrows from its highest bit, which was not set.
bool HoldsUnit(const char16_t* units, std::uint64_t sought) {
  constexpr std::uint64_t kHighest = kOnes << 15U;
  std::array<std::uint64_t, 2> words;
  std::memcpy(words.data(), units, sizeof words);
  words = {words[0] ^ sought, words[1] ^ sought};
  return ((((words[0] - kOnes) & ~words[0]) | ((words[1] - kOnes) & ~words[1])) & kHighest) != 0;
}

}  // namespace

std::u16string_view TrimLeft(std::u16string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(u' '), text.size()));
  return text;
}

std::u16string_view TrimRight(std::u16string_view text) {
  return text.substr(0, text.find_last_not_of(u' ') + 1);
}

std::u16string_view Trim(std::u16string_view text) {
  return TrimLeft(TrimRight(text));
}

std::size_t Find(std::u16string_view text, char16_t unit, std::size_t start) {
  const std::uint64_t sought = unit * kOnes;
  std::size_t at = start;
  while (at + kBlockUnits <= text.size() && !HoldsUnit(text.data() + at, sought)) {
    at += kBlockUnits;
  }
  while (at < text.size() && text[at] != unit) {
    ++at;
  }
  return at;
}

bool Contains(std::u16string_view text, std::u16string_view piece) {
  std::size_t at = Find(text, piece.front());
  while (at < text.size() && !text.substr(at).starts_with(piece)) {
    at = Find(text, piece.front(), at + 1);
  }
  return at < text.size();
}

char16_t UpperCase(char16_t unit) {
  return Capitals()[unit];
}

std::u16string UpperCase(std::u16string_view text) {
  const auto& capitals = Capitals();
  std::u16string result(text);
  for (char16_t& unit : result) {
    unit = capitals[unit];
  }
  return result;
}

std::u16string LowerCase(std::u16string_view text) {
  std::u16string result(text);
  for (char16_t& unit : result) {
    unit = static_cast<char16_t>(u_tolower(unit));
  }
  return result;
}

std::vector<std::u16string_view> Split(std::u16string_view text, char16_t separator) {
  std::vector<std::u16string_view> pieces;
  for (auto end = text.find(separator); end != std::u16string_view::npos;
       end = text.find(separator)) {
    pieces.push_back(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  pieces.push_back(text);
  return pieces;
}

std::u16string ReplaceAll(std::u16string_view text, std::u16string_view from,
                          std::u16string_view to) {
  std::u16string result;
  for (auto at = text.find(from); at != std::u16string_view::npos; at = text.find(from)) {
    result += text.substr(0, at);
    result += to;
    text.remove_prefix(at + from.size());
  }
  result += text;
  return result;
}

std::u16string FromUtf8(std::string_view bytes) {
  std::u16string text;
  DecodeUtf8(bytes, text);
  return text;
}

std::string ToUtf8(std::u16string_view text) {
  std::string bytes;
  EncodeUtf8WithHalves(text, bytes);
  return bytes;
}

}  // namespace lexmill::platform
