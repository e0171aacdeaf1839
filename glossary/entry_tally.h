// SPDX-License-Identifier: MIT
// glossary: the stages for glossaries, and what all stages share.
// Counts the entries of a dictionary as a stage passes them.
#pragma once

#include <string>
#include <string_view>

#include "run/shared/run_counts.h"

namespace lexmill {

/// The counts of one dictionary, which go into those of the run. The head line of a glossary, its
/// first line if that has a language key such as "9 1" in both columns, is counted nowhere.
class EntryTally {
 public:
  /// Begins to count the dictionary `path`, one that the run's state knows.
  void Start(std::u16string_view path);

  /// A line with more than two columns.
  void MoreColumns();
  /// An entry of a reference; `used` if the rules made a row of it.
  void Reference(std::u16string_view source, std::u16string_view target, bool used);
  /// An entry of an untranslated dictionary; `searched` if the rules made a row of it.
  void Untranslated(std::u16string_view source, std::u16string_view target, bool searched);

 private:
  [[nodiscard]] bool TakeHead(std::u16string_view source, std::u16string_view target);

  RunCounts* counts_ = nullptr;
  DroppedEntries* dropped_ = nullptr;
  bool mayBeHead_ = false;  ///< no line of a glossary has come yet
};

/// Counts a row of the ready dictionary that goes into the result: one translation of `source`, as
/// the result has it.
void CountTranslation(std::u16string_view source, std::u16string_view translation);

}  // namespace lexmill
