// SPDX-License-Identifier: MIT
#include "platform/text/text.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <span>

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

// The library looks for one of the unit's bytes in many at once. Few other units have it.
std::size_t Find(std::u16string_view text, char16_t unit, std::size_t start) {
  const auto bytes = std::as_bytes(std::span(text));
  for (std::size_t at = start; at < text.size(); ++at) {
    const auto rest = bytes.subspan(at * sizeof unit);
    const void* const found = std::memchr(rest.data(), unit & 0xFF, rest.size());
    if (found == nullptr) {
      break;
    }
    at =
        static_cast<std::size_t>(static_cast<const std::byte*>(found) - bytes.data()) / sizeof unit;
    if (text[at] == unit) {
      return at;
    }
  }
  return text.size();
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
