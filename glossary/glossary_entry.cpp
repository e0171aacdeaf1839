// SPDX-License-Identifier: MIT
#include "glossary/glossary_entry.h"

namespace lexmill {

std::optional<GlossaryEntry> ReadGlossaryEntry(const RecordScanner& scanner) {
  constexpr std::int32_t kFields = 2;
  if (scanner.FieldCount() > kFields) {
    return std::nullopt;
  }
  return GlossaryEntry{scanner.Field(1), scanner.Field(2)};
}

}  // namespace lexmill
