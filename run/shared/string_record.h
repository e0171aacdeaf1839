// SPDX-License-Identifier: MIT
// run/shared: what every room may read of a run.
// The strings of a run with their translations, for a report.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/scratch/scratch_database.h"

namespace lexmill {

/// A different string of the untranslated dictionary.
struct RecordedString {
  std::u16string source;
  std::int64_t count = 0;                    ///< untranslated entries that have it
  bool tooLong = false;                      ///< for txtLenLimit; it was not looked for
  std::vector<std::u16string> translations;  ///< in the order of the ready dictionary
};

/// Takes down the strings of a run as its stages pass them, on the disk rather than in memory. A
/// disk that is full ends the record, not the run.
class StringRecord {
 public:
  /// @throws as ScratchDatabase
  StringRecord();

  /// An untranslated entry, in the order of the dictionary. Never fails, nor does the next.
  void AddEntry(std::u16string_view source, bool tooLong);
  /// A row of the ready dictionary that goes into the result.
  void AddTranslation(std::u16string_view source, std::u16string_view translation);
  /// Reports each different string once, in the order of its first entry. Ends the record.
  /// @throws as ScratchDatabase, also for what failed before, and whatever `onString` throws
  void ForEach(const std::function<void(const RecordedString&)>& onString);

 private:
  [[nodiscard]] std::vector<std::u16string> TranslationsOf(std::u16string_view source);

  void AddRow(platform::ScratchStatement& insert, const std::function<void()>& bindValues);

  bool isComplete_ = true;
  platform::ScratchDatabase database_;
  platform::ScratchStatement addEntry_;
  platform::ScratchStatement addTranslation_;
  platform::ScratchStatement translationsOf_;
};

}  // namespace lexmill
