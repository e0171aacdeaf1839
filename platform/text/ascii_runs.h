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

/// Characters that are converted in one step: four bytes in a word of 32 bits, four units in one of
/// 64, the first one lowest. A plain loop over them is not made one step by the compiler.
inline constexpr std::size_t kStep = 4;
static_assert(std::endian::native == std::endian::little);

/// Each byte of `bytes` as a unit.
[[nodiscard]] inline std::uint64_t Widened(std::uint32_t bytes) {
  const std::uint64_t pairs = (bytes | std::uint64_t{bytes} << 16) & 0x0000'FFFF'0000'FFFF;
  return (pairs | pairs << 8) & 0x00FF'00FF'00FF'00FF;
}

/// Each unit of `units` as a byte, up to the first that is not ASCII.
[[nodiscard]] inline std::uint32_t Narrowed(std::uint64_t units) {
  const std::uint64_t pairs = (units | units >> 8) & 0x0000'FFFF'0000'FFFF;
  return static_cast<std::uint32_t>(pairs | pairs >> 16);
}

/// Number of ASCII bytes at the start of `bytes`.
[[nodiscard]] inline std::size_t AsciiLength(std::string_view bytes) {
  constexpr std::uint64_t kNotAscii = 0x8080808080808080;
  std::size_t length = 0;
  for (std::uint64_t block = 0; length + sizeof block <= bytes.size(); length += sizeof block) {
    std::memcpy(&block, bytes.data() + length, sizeof block);
    if ((block & kNotAscii) != 0) {
      break;
    }
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
  for (std::uint32_t narrow = 0; done + kStep <= bytes.size(); done += kStep) {
    std::memcpy(&narrow, bytes.data() + done, sizeof narrow);
    const std::uint64_t wide = Widened(narrow);
    std::memcpy(text + done, &wide, sizeof wide);
    if (const std::uint32_t others = narrow & 0x80808080; others != 0) {
      return done + static_cast<std::size_t>(std::countr_zero(others)) / 8;
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
  for (std::uint64_t wide = 0; done + kStep <= text.size(); done += kStep) {
    std::memcpy(&wide, text.data() + done, sizeof wide);
    const std::uint32_t narrow = Narrowed(wide);
    std::memcpy(bytes + done, &narrow, sizeof narrow);
    if (const std::uint64_t others = wide & 0xFF80'FF80'FF80'FF80; others != 0) {
      return done + static_cast<std::size_t>(std::countr_zero(others)) / 16;
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
