// SPDX-License-Identifier: MIT
// platform/text: the code page, which turns the bytes of text files into 16-bit text and back.
//
// The system has one code page for every file that is not recognised as UTF-8. By default that is
// code page 936 carried on by the four-byte forms of GB18030, so that every character has bytes and
// all text of code page 936 keeps its own.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace lexmill::platform {

/// Bytes that a page can't decode become units of their own, kSurvivingByte + byte (lone low
/// surrogates, outside all text), and become the same bytes again.
inline constexpr char16_t kSurvivingByte = 0xDC00;

/// The unit that stands for the undecodable `byte`.
[[nodiscard]] constexpr char16_t SurvivingByte(char byte) {
  return static_cast<char16_t>(kSurvivingByte + static_cast<unsigned char>(byte));
}
/// True if `unit`, which is not the second half of a pair, stands for an undecodable byte. ASCII
/// bytes never do: every page decodes them.
[[nodiscard]] constexpr bool IsSurvivingByte(char32_t unit) {
  return unit >= kSurvivingByte + 0x80 && unit <= kSurvivingByte + 0xFF;
}

/// One code page. Immutable once open; cheap to share by reference.
class CodePage {
 public:
  /// Opens code page `number` (936, 950, 932, 949, 1252, 65001 …).
  /// @throws Failure InvalidCall if the machine's converters do not know it
  [[nodiscard]] static std::unique_ptr<const CodePage> Open(int number);

  virtual ~CodePage() = default;

  /// Appends the text of `bytes` to `text`. Whole characters only: a character that `bytes` cuts
  /// off at its end is taken byte by byte. Never fails.
  virtual void Decode(std::string_view bytes, std::u16string& text) const = 0;

  /// Appends the bytes of `text` to `bytes`.
  /// @return false if the page lacks a character; `bytes` is then as it was
  [[nodiscard]] virtual bool Encode(std::u16string_view text, std::string& bytes) const = 0;

  /// How many of the first bytes of `bytes` make up its first character; at least 1, not more than
  /// there are. `bytes` must not be empty.
  [[nodiscard]] virtual std::size_t CharacterLength(std::string_view bytes) const = 0;
};

/// The code page of the system. Page 936, carried on as above, until SetAnsiCodePage names another.
[[nodiscard]] const CodePage& AnsiCodePage();

/// Makes `number` the system's code page for the rest of the process; called once, at start.
/// @throws Failure InvalidCall for an unknown page; the page stays as it was
void SetAnsiCodePage(int number);

/// True once SetAnsiCodePage was called: that page then serves for everything.
[[nodiscard]] bool IsAnsiCodePageChosen();
/// True if the page of SetAnsiCodePage is UTF-8.
[[nodiscard]] bool IsAnsiCodePageUtf8();

/// `bytes` in the system's code page as text.
[[nodiscard]] std::u16string FromAnsi(std::string_view bytes);
/// `text` in the system's code page.
/// @throws Failure InvalidCall if the page lacks a character
[[nodiscard]] std::string ToAnsi(std::u16string_view text);

}  // namespace lexmill::platform
