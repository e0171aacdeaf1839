// SPDX-License-Identifier: MIT
// platform/text: the frame of every conversion between bytes and text in which ASCII stands for
// itself: runs of ASCII a block at a time, each other character by a function of the encoding.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include <unicode/utf16.h>

namespace lexmill::platform {

/// Bytes or units that are looked at or converted in one step.
inline constexpr std::size_t kBlock = 8;
/// A block in registers: left to the compiler, a loop over it goes one by one.
using BlockOfBytes [[gnu::vector_size(kBlock)]] = unsigned char;
using BlockOfUnits [[gnu::vector_size(kBlock * sizeof(char16_t))]] = char16_t;

/// Number of ASCII bytes at the start of the block at `bytes`.
[[nodiscard]] inline std::size_t AsciiOfBlock(const char* bytes) {
  constexpr std::uint64_t kNotAscii = 0x8080808080808080;
  static_assert(std::endian::native == std::endian::little);
  std::uint64_t block = 0;
  std::memcpy(&block, bytes, sizeof block);
  return static_cast<std::size_t>(std::countr_zero(block & kNotAscii)) / 8;
}

/// Number of ASCII units at the start of the block at `units`.
[[nodiscard]] inline std::size_t AsciiOfBlock(const char16_t* units) {
  constexpr std::uint64_t kNotAscii = 0xFF80FF80FF80FF80;
  std::array<std::uint64_t, 2> halves;
  std::memcpy(halves.data(), units, sizeof halves);
  const bool isHalf = (halves[0] & kNotAscii) == 0;
  const int bits = std::countr_zero(halves[isHalf ? 1 : 0] & kNotAscii);
  return static_cast<std::size_t>(bits) / 16 + (isHalf ? kBlock / 2 : 0);
}

/// Number of ASCII bytes at the start of `bytes`.
[[nodiscard]] inline std::size_t AsciiLength(std::string_view bytes) {
  std::size_t length = 0;
  for (std::size_t ascii = kBlock; ascii == kBlock && length + kBlock <= bytes.size();) {
    ascii = AsciiOfBlock(bytes.data() + length);
    length += ascii;
  }
  while (length < bytes.size() && static_cast<unsigned char>(bytes[length]) < 0x80) {
    ++length;
  }
  return length;
}

/// Converts the ASCII bytes at the start of `bytes` into `text`, which has room for all of `bytes`.
/// @return their number
[[nodiscard]] inline std::size_t WidenAscii(std::string_view bytes, char16_t* text) {
  std::size_t done = 0;
  for (; done + kBlock <= bytes.size(); done += kBlock) {
    BlockOfBytes narrow;
    std::memcpy(&narrow, bytes.data() + done, sizeof narrow);
    const auto wide = __builtin_convertvector(narrow, BlockOfUnits);
    std::memcpy(text + done, &wide, sizeof wide);
    if (const std::size_t ascii = AsciiOfBlock(bytes.data() + done); ascii < kBlock) {
      return done + ascii;
    }
  }
  for (; done < bytes.size() && static_cast<unsigned char>(bytes[done]) < 0x80; ++done) {
    text[done] = static_cast<unsigned char>(bytes[done]);
  }
  return done;
}

/// Converts the ASCII units at the start of `text` into `bytes`, which has room for all of `text`.
/// @return their number
[[nodiscard]] inline std::size_t NarrowAscii(std::u16string_view text, char* bytes) {
  std::size_t done = 0;
  for (; done + kBlock <= text.size(); done += kBlock) {
    BlockOfUnits wide;
    std::memcpy(&wide, text.data() + done, sizeof wide);
    const auto narrow = __builtin_convertvector(wide, BlockOfBytes);
    std::memcpy(bytes + done, &narrow, sizeof narrow);
    if (const std::size_t ascii = AsciiOfBlock(text.data() + done); ascii < kBlock) {
      return done + ascii;
    }
  }
  for (; done < text.size() && text[done] < 0x80; ++done) {
    bytes[done] = static_cast<char>(text[done]);
  }
  return done;
}

/// Writes `codePoint` as one unit or as a pair. @return where to go on
[[nodiscard]] inline char16_t* WriteUtf16(char32_t codePoint, char16_t* out) {
  if (U_IS_BMP(codePoint)) {
    *out++ = static_cast<char16_t>(codePoint);
  } else {
    *out++ = U16_LEAD(codePoint);
    *out++ = U16_TRAIL(codePoint);
  }
  return out;
}

/// Appends the text of `bytes` to `text`.
/// @param takeCharacter  called as (bytes, at, out) at a byte that is not ASCII: converts one
///   character, moves `at` past it and `out` after its units; never more units than bytes
template <class TakeCharacter>
void DecodeRuns(std::string_view bytes, std::u16string& text, TakeCharacter takeCharacter) {
  const auto before = text.size();
  text.resize(before + bytes.size());
  char16_t* out = text.data() + before;
  for (std::size_t at = 0; at < bytes.size();) {
    const auto ascii = WidenAscii(bytes.substr(at), out);
    at += ascii;
    out += ascii;
    while (at < bytes.size() && static_cast<unsigned char>(bytes[at]) >= 0x80) {
      takeCharacter(bytes, at, out);
    }
  }
  text.resize(static_cast<std::size_t>(out - text.data()));
}

/// Appends the bytes of `text` to `bytes`.
/// @param takeCharacter  called as (text, at, out) at a unit that is not ASCII: as in DecodeRuns;
///   never more than four bytes; returns false to give up
/// @return false if `takeCharacter` gave up; `bytes` is then as it was
template <class TakeCharacter>
[[nodiscard]] bool EncodeRuns(std::u16string_view text, std::string& bytes,
                              TakeCharacter takeCharacter) {
  constexpr std::size_t kUnits = 256;
  constexpr std::size_t kLongest = 4;
  const auto before = bytes.size();
  std::array<char, kUnits * kLongest> piece;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(at + kUnits, text.size());
    char* out = piece.data();
    while (at < end) {
      if (text[at] < 0x80) {
        const auto ascii = NarrowAscii(text.substr(at, end - at), out);
        at += ascii;
        out += ascii;
      } else if (!takeCharacter(text, at, out)) {
        bytes.resize(before);
        return false;
      }
    }
    bytes.append(piece.data(), out);
  }
  return true;
}

}  // namespace lexmill::platform
