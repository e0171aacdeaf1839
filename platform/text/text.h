// SPDX-License-Identifier: MIT
// platform/text: 16-bit text. All comparisons and searches are binary, unit by unit; case counts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lexmill::platform {

/// `text` without its leading blanks (U+0020 only).
[[nodiscard]] std::u16string_view TrimLeft(std::u16string_view text);
/// `text` without its trailing blanks (U+0020 only).
[[nodiscard]] std::u16string_view TrimRight(std::u16string_view text);
/// `text` without leading and trailing blanks (U+0020 only).
[[nodiscard]] std::u16string_view Trim(std::u16string_view text);

/// The capital of one unit by the system's simple one-to-one table, or the unit itself.
/// Surrogates stay. Source: the platform's upper-case table, which is Unicode's simple mapping but
/// for some letters that stay as they are.
[[nodiscard]] char16_t UpperCase(char16_t unit);
/// `text` with each unit in upper case; never longer or shorter.
[[nodiscard]] std::u16string UpperCase(std::u16string_view text);
/// `text` with each unit in lower case by Unicode's simple mapping; for comparing names without
/// case.
[[nodiscard]] std::u16string LowerCase(std::u16string_view text);

/// The pieces of `text` between separators; one piece if there is none, pieces may be empty.
/// The views share the life of `text`.
[[nodiscard]] std::vector<std::u16string_view> Split(std::u16string_view text, char16_t separator);

/// `text` with every occurrence of `from` (not empty) replaced by `to`, from left to right.
[[nodiscard]] std::u16string ReplaceAll(std::u16string_view text, std::u16string_view from,
                                        std::u16string_view to);

/// Position of the first `unit` in `text` from `start` on; the size of `text` if there is none.
/// Looks at many units in one step, and is slow only for a unit that shares its lower byte with
/// most others, as NUL does in plain ASCII.
[[nodiscard]] std::size_t Find(std::u16string_view text, char16_t unit, std::size_t start = 0);

/// True if `text` holds `piece`, which is not empty, anywhere.
[[nodiscard]] bool Contains(std::u16string_view text, std::u16string_view piece);
[[nodiscard]] inline bool Contains(std::u16string_view text, char16_t unit) {
  return Find(text, unit) < text.size();
}

/// 16-bit text from UTF-8. Each byte that is no valid UTF-8 becomes the unit 0xDC00 + byte.
[[nodiscard]] std::u16string FromUtf8(std::string_view bytes);
/// UTF-8 from 16-bit text. A lone unit from 0xDC80 to 0xDCFF becomes the byte it stands for; any
/// other lone surrogate becomes its three-byte form.
[[nodiscard]] std::string ToUtf8(std::u16string_view text);

}  // namespace lexmill::platform
