// SPDX-License-Identifier: MIT
// glossary: the stages for glossaries, and what all stages share.
// The record scanner: reports a text file line by line, each line cut into fields.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/event.h"

namespace lexmill {

/// Reads one text file at a time and reports it to its listener through three events, all inside
/// the write of ScanAction. Lines of no characters are passed over. One object lives as long as the
/// window.
class RecordScanner {
 public:
  /// Codes of ScanAction; no other is ever written.
  static constexpr std::int32_t kRun = 0;
  static constexpr std::int32_t kReset = 2;

  platform::Event<> ScanBegin;   ///< once, before the first record
  platform::Event<> ScanRecord;  ///< once for each record, in file order
  platform::Event<> ScanEnd;     ///< once, after the last record; not after a failure

  /// Path of the file to scan; its encoding is the one that the run's state tells.
  void ScanFile(std::u16string_view path);
  /// The one character between two fields; the stages give a TAB.
  void FieldSeparator(std::u16string_view separator);
  /// kRun scans the whole file and returns behind the last event; kReset goes back to the idle
  /// state and forgets the settings.
  /// @throws platform::Failure if the file can't be opened or read, and whatever a listener throws
  void ScanAction(std::int32_t action);

  /// Number of fields of the current record: separators plus one, at most 32767.
  [[nodiscard]] std::int32_t FieldCount() const;
  /// Share of the file's bytes read so far, 0 to 100; never falls, 100 at the end.
  [[nodiscard]] std::int32_t ProgressPercent() const;
  /// Field `n` of the current record, counted from 1; 0 is the whole record. Empty beyond the last.
  /// The view lives until the event returns.
  [[nodiscard]] std::u16string_view Field(std::int16_t n) const;

 private:
  std::u16string scanFile_;
  char16_t separator_ = u'\t';
};

}  // namespace lexmill
