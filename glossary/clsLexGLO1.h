// SPDX-License-Identifier: MIT
// glossary: the stages for glossaries, and what all stages share.
// Reference purification of a glossary.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "glossary/entry_tally.h"
#include "glossary/record_scanner.h"
#include "glossary/text_rules.h"
#include "platform/expression/regular_expression.h"
#include "platform/files/file_system.h"
#include "run/shared/option_set.h"
#include "run/shared/progress_tick.h"

namespace lexmill {

/// Strips every usable entry of a reference glossary down to its bare words and writes the script
/// of table R.
class clsLexGLO1 {
 public:
  clsLexGLO1() = default;
  clsLexGLO1(const clsLexGLO1&) = delete;
  clsLexGLO1& operator=(const clsLexGLO1&) = delete;

  /// Runs the stage to its end. Shows a failure of its own and then returns normally; ProcessTime
  /// stays 0 and the script, as far as it got, is left when this object goes.
  void DoItNow();
  /// Makes the stage the scanner's listener until this object goes. The scanner outlives it.
  void AwkControl(RecordScanner& objAwk);
  /// Milliseconds that the stage took; 0 after a failure.
  [[nodiscard]] std::int32_t ProcessTime() const { return processTime_; }
  /// The label whose caption shows the progress; it outlives this object.
  void StateLabel(platform::Label& ctlStateLabel) { progress_.StateLabel(ctlStateLabel); }
  /// Path of the glossary to read.
  void InputFile(std::u16string_view path) { inputFile_ = path; }
  /// Path of the script to write.
  void OutputFile(std::u16string_view path) { outputFile_ = path; }

 private:
  void ScanBegin();
  void ScanRecord();
  void ScanEnd();

  std::u16string inputFile_;
  std::u16string outputFile_;
  std::u16string statement_;
  EntryTally tally_;
  std::int32_t processTime_ = 0;
  // Released from the last to the first: scanner connection, expression, file system, output,
  // label.
  ProgressTick progress_;
  std::optional<platform::TextWriter> script_;
  platform::FileSystemObject fileSystem_;
  platform::RegExp expression_;
  ReferenceRules rules_{RunOptions(), expression_};
  RecordScanner* Awk = nullptr;
  ScannerConnection connection_;
};

}  // namespace lexmill
