// SPDX-License-Identifier: MIT
// glossary: the stages for glossaries, and what all stages share.
// The record scanner: reports a text file line by line, each line cut into fields.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/event.h"
#include "platform/files/file_system.h"

namespace lexmill {

/// A listener's hold on the three events of a scanner, for as long as this object lives.
struct ScannerConnection {
  platform::Connection begin;
  platform::Connection record;
  platform::Connection end;
};

/// Reads one text file at a time and reports it to its listener through three events, all inside
/// the write of ScanAction. Lines of no characters are passed over. One object lives as long as the
/// window.
class RecordScanner {
 public:
  /// Codes of ScanAction; no other is ever written.
  static constexpr std::int32_t kRun = 0;
  static constexpr std::int32_t kReset = 2;
  /// Fields beyond this many of one record are not separated.
  static constexpr std::int32_t kMostFields = 32767;

  RecordScanner() = default;
  RecordScanner(const RecordScanner&) = delete;
  RecordScanner& operator=(const RecordScanner&) = delete;

  platform::Event<> ScanBegin;   ///< once, before the first record
  platform::Event<> ScanRecord;  ///< once for each record, in file order
  platform::Event<> ScanEnd;     ///< once, after the last record; not after a failure
                                 ///< nor in a run that has been abandoned

  /// Connects one listener to all three events, in place of any earlier one.
  [[nodiscard]] ScannerConnection Connect(std::function<void()> onBegin,
                                          std::function<void()> onRecord,
                                          std::function<void()> onEnd);

  /// Path of the file to scan; its encoding is the one in the run's state.
  void ScanFile(std::u16string_view path);
  /// The one character between two fields; the stages give a TAB.
  /// @throws platform::Failure InvalidPropertyValue for a text of any other length
  void FieldSeparator(std::u16string_view separator);
  /// kRun scans the whole file and returns after the last event; kReset goes back to the idle
  /// state and forgets the settings.
  /// @throws platform::Failure if the file can't be opened or read, InvalidPropertyValue for any
  ///   other code, and whatever a listener throws
  void ScanAction(std::int32_t action);

  /// Number of fields of the current record: separators plus one, at most kMostFields.
  [[nodiscard]] std::int32_t FieldCount() const;
  /// The line of the current record, counted from 1.
  [[nodiscard]] std::int64_t LineNumber() const { return line_; }
  /// Share of the file's bytes read so far, 0 to 100; never falls, 100 at the end.
  [[nodiscard]] std::int32_t ProgressPercent() const;
  /// Field `n` of the current record, counted from 1; 0 is the whole record. Empty beyond the last.
  /// The view lives until the event returns.
  [[nodiscard]] std::u16string_view Field(std::int16_t n) const;

 private:
  void Run();
  void ScanRecords(platform::TextReader& file);
  void Reset();
  void ForgetRecord();
  void ReadRecord(platform::TextReader& file);

  std::u16string scanFile_;
  char16_t separator_ = u'\t';
  std::u16string_view record_;               ///< in the file that is being read
  std::vector<std::u16string_view> fields_;  ///< pieces of record_
  std::int64_t line_ = 0;
  std::int64_t bytesRead_ = 0;
  std::int64_t bytesInAll_ = 1;
};

}  // namespace lexmill
