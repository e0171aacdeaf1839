// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// Where the pieces of an entry of an XML catalog lie.
#pragma once

#include <optional>
#include <string>

#include "platform/files/file_range.h"

namespace lexmill {

/// An element of a file.
struct MarkupElement {
  std::u16string tag;            ///< its start tag, or the one tag that it is, as written
  platform::FileRange tagRange;  ///< of that tag
  platform::FileRange content;   ///< between its tags; empty behind the one tag
};

struct MarkupPlace {
  MarkupElement source;
  std::optional<MarkupElement> target;
  std::int64_t afterSource = 0;  ///< where a target may go that is missing
  std::int64_t afterTarget = 0;  ///< where a comment may go
  std::u16string indent;         ///< the line end and the blanks in front of the source
};

}  // namespace lexmill
