// SPDX-License-Identifier: MIT
// text: the stages for the text format (点睛), a file of numbered entries.
// Untranslated filtering of a text.
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
#include "text/text_entry.h"

namespace lexmill {

/// Writes every entry of an untranslated text to the script of table O, and every untranslated
/// string, taken apart, to the script of table S.
class clsLexUPB2 {
 public:
  clsLexUPB2() = default;
  clsLexUPB2(const clsLexUPB2&) = delete;
  clsLexUPB2& operator=(const clsLexUPB2&) = delete;

  /// Runs the stage to its end. Shows a failure of its own and then returns normally; ProcessTime
  /// stays 0 and the scripts, as far as they got, are left when this object goes.
  void DoItNow();
  /// Milliseconds that the stage took; 0 after a failure.
  [[nodiscard]] std::int32_t ProcessTime() const { return processTime_; }
  /// The label whose caption shows the progress; it outlives this object.
  void StateLabel(platform::Label& ctlStateLabel) { progress_.StateLabel(ctlStateLabel); }
  /// Path of the text to read.
  void InputFile(std::u16string_view path) { inputFile_ = path; }
  /// Path of the entries script to write.
  void OutputFile1(std::u16string_view path) { outputFile1_ = path; }
  /// Path of the untranslated script to write.
  void OutputFile2(std::u16string_view path) { outputFile2_ = path; }

 private:
  void ReadEntries(std::u16string_view path);
  void WriteScriptHeads();
  void FilterEntry(const TextEntry& entry);
  void WriteScriptTails();

  std::u16string inputFile_;
  std::u16string outputFile1_;
  std::u16string outputFile2_;
  std::u16string statement_;
  EntryTally tally_;
  std::int32_t processTime_ = 0;
  // Released from the last to the first: expression, file system, output, label.
  ProgressTick progress_;
  std::optional<platform::TextWriter> entriesScript_;
  std::optional<platform::TextWriter> untranslatedScript_;
  platform::FileSystemObject fileSystem_;
  platform::RegExp expression_;
  UntranslatedRules rules_{RunOptions(), expression_};
};

}  // namespace lexmill
