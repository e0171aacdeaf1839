// SPDX-License-Identifier: MIT
#include "platform/text/text_encoding.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include <unicode/utf8.h>

#include "platform/text/ansi_text.h"
#include "platform/text/ascii_runs.h"
#include "platform/text/utf8.h"

namespace lexmill::platform {
namespace {

/// Sequences of two bytes from which on chance is ruled out: fewer may be text of a code page.
constexpr int kPairsForCertain = 10;

/// Length of `bytes` without a character that may go on after their end.
std::size_t WithoutCutOff(std::string_view bytes) {
  auto length = std::ssize(bytes);
  U8_TRUNCATE_IF_INCOMPLETE(bytes, 0, length);
  return static_cast<std::size_t>(length);
}

}  // namespace

void DecodeText(TextEncoding encoding, std::string_view bytes, std::u16string& text) {
  if (encoding == TextEncoding::Ansi) {
    AnsiCodePage().Decode(bytes, text);
  } else {
    DecodeUtf8(bytes, text);
  }
}

bool EncodeText(TextEncoding encoding, std::u16string_view text, std::string& bytes) {
  return encoding == TextEncoding::Ansi ? AnsiCodePage().Encode(text, bytes)
                                        : EncodeUtf8(text, bytes);
}

// Blocks end anywhere. The beginning of a character that a block cuts off waits in `pending_` until
// the next block has completed it, or shown that it can't be completed.
bool Utf8Recognition::Feed(std::string_view bytes) {
  while (!pending_.empty() && !bytes.empty()) {
    pending_ += bytes.front();
    bytes.remove_prefix(1);
    if (WithoutCutOff(pending_) == pending_.size()) {
      Scan(pending_);
      pending_.clear();
    }
  }
  const std::size_t whole = WithoutCutOff(bytes);
  Scan(bytes.substr(0, whole));
  pending_ += bytes.substr(whole);
  return valid_;
}

// What is valid by chance: text of a two-byte page can look like a few sequences of two bytes,
// hardly like one of three, and never like many.
TextEncoding Utf8Recognition::Result() const {
  if (!valid_ || !pending_.empty()) {
    return TextEncoding::Ansi;
  }
  if (hasMark_) {
    return TextEncoding::Utf8WithMark;
  }
  return hasLongSequence_ || pairs_ >= kPairsForCertain ? TextEncoding::Utf8 : TextEncoding::Ansi;
}

void Utf8Recognition::Scan(std::string_view bytes) {
  constexpr std::int32_t kMark = 0xFEFF;
  constexpr std::int32_t kLastOfTwoBytes = 0x7FF;
  for (std::size_t at = 0; at < bytes.size() && valid_; atStart_ = false) {
    if (U8_IS_SINGLE(bytes[at])) {
      at += AsciiLength(bytes.substr(at));
      continue;
    }
    isPlainAscii_ = false;
    const std::int32_t codePoint = NextUtf8(bytes, at);
    valid_ = codePoint >= 0;
    hasMark_ = hasMark_ || (atStart_ && codePoint == kMark);
    hasLongSequence_ = hasLongSequence_ || codePoint > kLastOfTwoBytes;
    pairs_ = std::min(pairs_ + 1, kPairsForCertain);
  }
}

}  // namespace lexmill::platform
