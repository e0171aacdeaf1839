// SPDX-License-Identifier: MIT
#include "text/clsLexUPB2.h"

#include "foundation/entry_point.h"
#include "glossary/working_scripts.h"
#include "run/shared/run_state.h"

namespace lexmill {

void clsLexUPB2::DoItNow() {
  ReportFailures(u"Class Module 'clsLexUPB2' -> 'DoItNow'", [this] {
    entriesScript_ = fileSystem_.CreateTextFile(outputFile1_, true);
    untranslatedScript_ = fileSystem_.CreateTextFile(outputFile2_, true);
    ReadEntries(inputFile_);
  });
}

void clsLexUPB2::ReadEntries(std::u16string_view path) {
  auto input = fileSystem_.OpenTextFile(path, KindOf(path).encoding);
  WriteScriptHeads();
  ForEachEntry(input, progress_, [this](const TextEntry& entry) { FilterEntry(entry); });
  input.Close();
  WriteScriptTails();
}

void clsLexUPB2::WriteScriptHeads() {
  progress_.Start();
  tally_.Start(inputFile_);
  WriteHeadLines(*untranslatedScript_, kUntranslatedScript);
  WriteHeadLines(*entriesScript_, kEntriesScript);
}

void clsLexUPB2::FilterEntry(const TextEntry& entry) {
  SetRowOfO(statement_, entry.headLine, entry.source, entry.target);
  entriesScript_->WriteLine(statement_);
  const auto row = rules_.DecomposeUntranslated(entry.source, entry.target);
  if (row) {
    SetRowOfS(statement_, *row);
    untranslatedScript_->WriteLine(statement_);
  }
  tally_.Untranslated(entry.source, entry.target, row.has_value());
}

void clsLexUPB2::WriteScriptTails() {
  WriteTailLines(*untranslatedScript_, kUntranslatedScript);
  WriteTailLines(*entriesScript_, kEntriesScript);
  const std::int32_t time = progress_.Elapsed();
  untranslatedScript_->Close();
  untranslatedScript_.reset();
  entriesScript_->Close();
  entriesScript_.reset();
  processTime_ = time;
  TheRun().counts.untranslatedRead = true;
}

}  // namespace lexmill
