// SPDX-License-Identifier: MIT
// glossary: the stages for glossaries, and what all stages share.
// An entry of a glossary: the two fields of a line.
#pragma once

#include <optional>
#include <string_view>

#include "glossary/record_scanner.h"

namespace lexmill {

/// An entry; the target of a line without a TAB is empty.
struct GlossaryEntry {
  std::u16string_view source;
  std::u16string_view target;
};

/// The scanner's current record as an entry; its views live until the event returns.
/// @return none for a record of more than two fields
[[nodiscard]] std::optional<GlossaryEntry> ReadGlossaryEntry(const RecordScanner& scanner);

}  // namespace lexmill
