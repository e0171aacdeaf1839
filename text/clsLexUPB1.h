// SPDX-License-Identifier: MIT
// text: the stages for the text format (点睛), a file of numbered entries.
// Reference purification of a text.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "glossary/entry_tally.h"
#include "glossary/text_rules.h"
#include "platform/expression/regular_expression.h"
#include "platform/files/file_system.h"
#include "run/shared/option_set.h"
#include "run/shared/progress_tick.h"

namespace lexmill {

/// Strips every usable entry of a reference text down to its bare words and writes the script of
/// table R.
class clsLexUPB1 {
 public:
  clsLexUPB1() = default;
  clsLexUPB1(const clsLexUPB1&) = delete;
  clsLexUPB1& operator=(const clsLexUPB1&) = delete;

  /// Runs the stage to its end. Shows a failure of its own and then returns normally; ProcessTime
  /// stays 0 and the script, as far as it got, is left when this object goes.
  void DoItNow();
  /// Milliseconds that the stage took; 0 after a failure.
  [[nodiscard]] std::int32_t ProcessTime() const { return processTime_; }
  /// The label whose caption shows the progress; it outlives this object.
  void StateLabel(platform::Label& ctlStateLabel) { progress_.StateLabel(ctlStateLabel); }
  /// Path of the text to read.
  void InputFile(std::u16string_view path) { inputFile_ = path; }
  /// Path of the script to write.
  void OutputFile(std::u16string_view path) { outputFile_ = path; }

 private:
  void ReadEntries(std::u16string_view path);
  void WriteScriptHead();
  void PurifyEntry(std::u16string_view source, std::u16string_view target);
  void WriteScriptTail();

  std::u16string inputFile_;
  std::u16string outputFile_;
  std::u16string statement_;
  EntryTally tally_;
  std::int32_t processTime_ = 0;
  // Released from the last to the first: expression, file system, output, label.
  ProgressTick progress_;
  std::optional<platform::TextWriter> script_;
  platform::FileSystemObject fileSystem_;
  platform::RegExp expression_;
  ReferenceRules rules_{RunOptions(), expression_};
};

}  // namespace lexmill
