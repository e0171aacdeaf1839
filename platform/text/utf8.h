// SPDX-License-Identifier: MIT
// platform/text: UTF-8, strict but lossless: bytes that are no text survive as units of their own.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace lexmill::platform {

/// Takes the character at `at` of `bytes`, or the one byte there if no valid character begins at
/// it, and moves `at` past that.
/// @return its code point; negative for a byte that is no valid UTF-8: of too long a form, of half
///   a pair, beyond U+10FFFF, or cut off
[[nodiscard]] std::int32_t NextUtf8(std::string_view bytes, std::size_t& at);

/// Appends the text of `bytes` to `text`. Each byte that is no valid UTF-8 becomes the unit
/// 0xDC00 + byte.
void DecodeUtf8(std::string_view bytes, std::u16string& text);

/// Appends `text` to `bytes`. A lone unit from 0xDC80 to 0xDCFF becomes the byte it stands for.
/// @return false if `text` holds any other lone surrogate; `bytes` is then as it was
[[nodiscard]] bool EncodeUtf8(std::u16string_view text, std::string& bytes);
/// As EncodeUtf8, but any other lone surrogate becomes its three-byte form.
void EncodeUtf8WithHalves(std::u16string_view text, std::string& bytes);

}  // namespace lexmill::platform
