// SPDX-License-Identifier: MIT
// glossary: the stages for glossaries, and what all stages share.
// The ready dictionary: each untranslated string's pieces beside its translation, by column name.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "glossary/record_scanner.h"

namespace lexmill {

/// One row of the ready dictionary. A record with fewer fields leaves the last ones empty.
struct ReadyRow {
  std::u16string_view so;  ///< the untranslated string, whole
  std::u16string_view sh;  ///< head
  std::u16string_view r2;  ///< the translation, bare
  std::u16string_view sk;  ///< hot key in its brackets
  std::u16string_view st;  ///< tail
};

/// The scanner's current record as a row; its views live until the event returns.
/// @return none for a record of more than five fields
[[nodiscard]] std::optional<ReadyRow> ReadReadyRow(const RecordScanner& scanner);

/// Appends the target string to `text`: the translation in the untranslated string's decoration.
/// @param withHotKey  false leaves out the hot key, whatever the row has
void RebuildTarget(const ReadyRow& row, bool withHotKey, std::u16string& text);

}  // namespace lexmill
