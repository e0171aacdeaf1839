// SPDX-License-Identifier: MIT
// platform/text: which encoding a text file is in, and conversion by that encoding.
#pragma once

#include <string>
#include <string_view>

namespace lexmill::platform {

/// The encoding of one text file.
enum class TextEncoding {
  Ansi,          ///< the system's code page
  Utf8,          ///< UTF-8 without a mark
  Utf8WithMark,  ///< UTF-8 after the mark EF BB BF
};

/// Appends the text of `bytes`, which holds whole characters and no mark, to `text`. Never fails.
void DecodeText(TextEncoding encoding, std::string_view bytes, std::u16string& text);

/// Appends the bytes of `text`, without a mark, to `bytes`.
/// @return false if the encoding lacks a character; `bytes` is then as it was
[[nodiscard]] bool EncodeText(TextEncoding encoding, std::u16string_view text, std::string& bytes);

/// Finds out from a file's bytes whether it is UTF-8: strictly valid throughout, and with a mark at
/// its start, a sequence of three or more bytes anywhere, or ten of two. Text of code page 936
/// looks like that in about two of a hundred million files. Fed piece by piece, pieces may end
/// anywhere.
class Utf8Recognition {
 public:
  /// Looks at the next bytes of the file.
  /// @return false once the file can't be UTF-8; further bytes need not be fed
  bool Feed(std::string_view bytes);

  /// The encoding of the file fed so far, taken as the whole file.
  [[nodiscard]] TextEncoding Result() const;

  /// True if the bytes fed so far are all ASCII, which every encoding reads alike.
  [[nodiscard]] bool IsPlainAscii() const { return isPlainAscii_ && pending_.empty(); }

 private:
  void Scan(std::string_view bytes);

  bool valid_ = true;
  bool isPlainAscii_ = true;
  bool hasMark_ = false;
  bool hasLongSequence_ = false;
  int pairs_ = 0;        ///< sequences of two bytes seen, counted as far as they matter
  bool atStart_ = true;  ///< no character was seen yet
  std::string pending_;  ///< start of the character that the last piece cut off
};

}  // namespace lexmill::platform
