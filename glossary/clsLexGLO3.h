// SPDX-License-Identifier: MIT
// glossary: the stages for glossaries, and what all stages share.
// Generation of a translated glossary.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "glossary/record_scanner.h"
#include "platform/files/file_system.h"
#include "run/shared/progress_tick.h"

namespace lexmill {

/// Writes the translated glossary from the ready dictionary: a line for each row.
class clsLexGLO3 {
 public:
  clsLexGLO3() = default;
  clsLexGLO3(const clsLexGLO3&) = delete;
  clsLexGLO3& operator=(const clsLexGLO3&) = delete;

  /// Runs the stage to its end. Shows a failure of its own and then returns normally; ProcessTime
  /// stays 0 and the glossary, as far as it got, is left when this object goes.
  void DoItNow();
  /// Makes the stage the scanner's listener until this object goes. The scanner outlives it.
  void AwkControl(RecordScanner& objAwk);
  /// Milliseconds that the stage took; 0 after a failure.
  [[nodiscard]] std::int32_t ProcessTime() const { return processTime_; }
  /// The label whose caption shows the progress; it outlives this object.
  void StateLabel(platform::Label& ctlStateLabel) { progress_.StateLabel(ctlStateLabel); }
  /// Path of the ready dictionary.
  void InputFile(std::u16string_view path) { inputFile_ = path; }
  /// Path of the glossary to write, in the encoding of the run's result.
  void OutputFile(std::u16string_view path) { outputFile_ = path; }

 private:
  void ScanBegin();
  void ScanRecord();
  void ScanEnd();

  std::u16string inputFile_;
  std::u16string outputFile_;
  std::u16string line_;
  std::int32_t processTime_ = 0;
  // Released from the last to the first: scanner connection, file system, output, label.
  ProgressTick progress_;
  std::optional<platform::TextWriter> output_;
  platform::FileSystemObject fileSystem_;
  RecordScanner* Awk = nullptr;
  ScannerConnection connection_;
};

}  // namespace lexmill
