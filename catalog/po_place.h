// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// Where the pieces of an entry of a PO file lie, and how it is laid out.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/file_range.h"

namespace lexmill {

/// A line of flags, such as `#, fuzzy, c-format`.
struct PoFlagLine {
  platform::FileRange range;  ///< its end included
  std::u16string text;        ///< without its end
  std::u16string_view lineEnd;
};

struct PoPlace {
  std::int64_t comment = 0;  ///< where a line with a translator's comment may go
  std::int64_t flags = 0;    ///< where a line of flags may go
  std::vector<PoFlagLine> flagLines;
  platform::FileRange target;      ///< from the first quote of msgstr to after the last one
  std::u16string_view lineEnd;     ///< of the line with the keyword msgid
  bool beginsInLine = false;       ///< something comes before the entry in its first line
  bool hasSourceOnOneLine = true;  ///< and so its target
  bool isWrapped = false;          ///< a line of the source ends in the middle of a paragraph
  std::size_t width = 0;           ///< columns of the widest wrapped line so far
};

}  // namespace lexmill
