// SPDX-License-Identifier: MIT
// platform/files: the lines of a file as text, each with its place in the file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/files/file_range.h"
#include "platform/files/line_bytes.h"
#include "platform/text/ansi_text.h"

namespace lexmill::platform {

/// Goes through the lines of a text file and remembers where the present one lies. LF ends a line,
/// a CR directly before it goes too. A UTF-8 mark at the start belongs to no line.
class PlacedLines {
 public:
  /// Opens `path`. @param page  how lines are decoded; kept by reference
  /// @throws Failure as OpenToRead
  PlacedLines(std::u16string_view path, const CodePage& page);

  /// Goes to the next line, at first to the first. A last line without an end counts.
  /// @return false if there is none; the present line is then an empty one at the end of the file
  /// @throws Failure DeviceError if the host can't read
  bool Next();

  /// The present line without its end; good until the next call of Next. It is decoded when it is
  /// first asked for.
  [[nodiscard]] std::u16string_view Text() const {
    if (!isDecoded_) {
      Decode();
    }
    return text_;
  }
  /// True if the present line begins with `ascii`, and without decoding it.
  [[nodiscard]] bool StartsWith(std::string_view ascii) const { return line_.starts_with(ascii); }
  /// What ends the present line: LF, CR LF, or nothing at the end of the file.
  [[nodiscard]] std::u16string_view End() const { return end_; }
  /// The number of the present line; the first is 1.
  [[nodiscard]] std::int64_t Number() const { return number_; }
  /// Where the present line lies, its end included.
  [[nodiscard]] FileRange Range() const { return range_; }
  /// Where unit `unit` of the present line lies; its size means the end of its text.
  [[nodiscard]] std::int64_t PlaceOf(std::size_t unit) const;

 private:
  [[nodiscard]] std::int64_t BytesOf(std::u16string_view text) const;

  void Decode() const;

  LineBytes source_;
  const CodePage& page_;
  std::string_view line_;  ///< the bytes of the present line, without its end
  mutable std::u16string text_;
  mutable bool isDecoded_ = true;
  std::u16string_view end_;
  std::int64_t number_ = 0;
  FileRange range_;
};

}  // namespace lexmill::platform
