// SPDX-License-Identifier: MIT
#include "platform/text/utf8.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include "platform/text/ansi_text.h"
#include "platform/text/ascii_runs.h"

namespace lexmill::platform {
namespace {

/// @param withHalves  whether half of a pair has a form, which strict UTF-8 denies it
bool Encode(std::u16string_view text, std::string& bytes, bool withHalves) {
  const auto take = [withHalves](std::u16string_view from, std::size_t& at, char*& out) {
    UChar32 codePoint = 0;
    U16_NEXT(from.data(), at, from.size(), codePoint);
    if (IsSurvivingByte(codePoint)) {
      *out++ = static_cast<char>(codePoint - kSurvivingByte);
      return true;
    }
    if (U_IS_SURROGATE(codePoint) && !withHalves) {
      return false;
    }
    std::size_t length = 0;
    U8_APPEND_UNSAFE(out, length, codePoint);
    out += length;
    return true;
  };
  return EncodeRuns(text, bytes, take);
}

}  // namespace

std::int32_t NextUtf8(std::string_view bytes, std::size_t& at) {
  const auto start = at;
  UChar32 codePoint = 0;
// The library's macro stores an int in a byte on purpose.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
  U8_NEXT(bytes.data(), at, bytes.size(), codePoint);
#pragma GCC diagnostic pop
  // The library passes over all bytes of a broken sequence; here each is taken by itself, so that
  // each survives.
  if (codePoint < 0) {
    at = start + 1;
  }
  return codePoint;
}

void DecodeUtf8(std::string_view bytes, std::u16string& text) {
  DecodeRuns(bytes, text, [](std::string_view from, std::size_t& at, char16_t*& out) {
    const char first = from[at];
    const UChar32 codePoint = NextUtf8(from, at);
    if (codePoint < 0) {
      *out++ = SurvivingByte(first);
    } else {
      out = WriteUtf16(static_cast<char32_t>(codePoint), out);
    }
  });
}

bool EncodeUtf8(std::u16string_view text, std::string& bytes) {
  return Encode(text, bytes, false);
}

void EncodeUtf8WithHalves(std::u16string_view text, std::string& bytes) {
  static_cast<void>(Encode(text, bytes, true));
}

}  // namespace lexmill::platform
