// SPDX-License-Identifier: MIT
// text: the stages for the text format (点睛), a file of numbered entries.
// Generation of a translated text: the targets that the run has found.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "glossary/record_scanner.h"
#include "platform/files/file_system.h"
#include "run/shared/progress_tick.h"

namespace lexmill {

/// Turns the ready dictionary into the script that puts each translation into table O.
class clsLexUPB3 {
 public:
  clsLexUPB3() = default;
  clsLexUPB3(const clsLexUPB3&) = delete;
  clsLexUPB3& operator=(const clsLexUPB3&) = delete;

  /// Runs the stage to its end. Shows a failure of its own and then returns normally; ProcessTime
  /// stays 0 and the script, as far as it got, is left when this object goes.
  void DoItNow();
  /// Makes the stage the scanner's listener until this object goes. The scanner outlives it.
  void AwkControl(RecordScanner& objAwk);
  /// Milliseconds that the stage took; 0 after a failure.
  [[nodiscard]] std::int32_t ProcessTime() const { return processTime_; }
  /// The label whose caption shows the progress; it outlives this object.
  void StateLabel(platform::Label& ctlStateLabel) { progress_.StateLabel(ctlStateLabel); }
  /// Path of the ready dictionary.
  void InputFile(std::u16string_view path) { inputFile_ = path; }
  /// Path of the update script to write.
  void OutputFile(std::u16string_view path) { outputFile_ = path; }

 private:
  void ScanBegin();
  void ScanRecord();
  void ScanEnd();

  std::u16string inputFile_;
  std::u16string outputFile_;
  std::u16string target_;
  std::u16string statement_;
  std::int32_t processTime_ = 0;
  // Released from the last to the first: scanner connection, file system, output, label.
  ProgressTick progress_;
  std::optional<platform::TextWriter> script_;
  platform::FileSystemObject fileSystem_;
  RecordScanner* Awk = nullptr;
  ScannerConnection connection_;
};

}  // namespace lexmill
