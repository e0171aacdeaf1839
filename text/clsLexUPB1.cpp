// SPDX-License-Identifier: MIT
#include "text/clsLexUPB1.h"

#include "foundation/entry_point.h"
#include "glossary/stage_steps.h"
#include "glossary/working_scripts.h"
#include "run/shared/run_state.h"
#include "text/text_entry.h"

namespace lexmill {

void clsLexUPB1::DoItNow() {
  ReportFailures(u"Class Module 'clsLexUPB1' -> 'DoItNow'", [this] {
    script_ = fileSystem_.CreateTextFile(outputFile_, true);
    ReadEntries(inputFile_);
  });
}

void clsLexUPB1::ReadEntries(std::u16string_view path) {
  auto input = fileSystem_.OpenTextFile(path, KindOf(path).encoding);
  WriteScriptHead();
  ForEachEntry(input, progress_,
               [this](const TextEntry& entry) { PurifyEntry(entry.source, entry.target); });
  input.Close();
  WriteScriptTail();
}

void clsLexUPB1::WriteScriptHead() {
  progress_.Start();
  tally_.Start(inputFile_);
  WriteHeadLines(*script_, kReferenceScript);
}

void clsLexUPB1::PurifyEntry(std::u16string_view source, std::u16string_view target) {
  const auto row = rules_.PurifyReference(source, target);
  if (row) {
    SetRowOfR(statement_, row->source, row->target);
    script_->WriteLine(statement_);
  }
  tally_.Reference(source, target, row.has_value());
}

void clsLexUPB1::WriteScriptTail() {
  WriteTailLines(*script_, kReferenceScript);
  processTime_ = FinishStage(progress_, script_);
}

}  // namespace lexmill
