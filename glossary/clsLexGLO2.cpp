// SPDX-License-Identifier: MIT
#include "glossary/clsLexGLO2.h"

#include "foundation/entry_point.h"
#include "glossary/glossary_entry.h"
#include "glossary/stage_steps.h"
#include "glossary/working_scripts.h"
#include "run/shared/run_state.h"

namespace lexmill {

void clsLexGLO2::DoItNow() {
  ReportFailures(u"Class Module 'clsLexGLO2' -> 'DoItNow'", [this] {
    script_ = fileSystem_.CreateTextFile(outputFile_, true);
    ScanTabSeparated(*Awk, inputFile_);
  });
}

void clsLexGLO2::AwkControl(RecordScanner& objAwk) {
  Awk = &objAwk;
  connection_ =
      Awk->Connect([this] { ScanBegin(); }, [this] { ScanRecord(); }, [this] { ScanEnd(); });
}

void clsLexGLO2::ScanBegin() {
  progress_.Start();
  tally_.Start(inputFile_);
  WriteHeadLines(*script_, kUntranslatedScript);
}

void clsLexGLO2::ScanRecord() {
  ShowScanProgress(progress_, *Awk);
  const auto entry = ReadGlossaryEntry(*Awk);
  if (!entry) {
    tally_.MoreColumns();
    return;
  }
  const auto row = rules_.DecomposeUntranslated(entry->source, entry->target);
  if (row) {
    SetRowOfS(statement_, *row);
    script_->WriteLine(statement_);
  }
  tally_.Untranslated(entry->source, entry->target, row.has_value());
}

void clsLexGLO2::ScanEnd() {
  WriteTailLines(*script_, kUntranslatedScript);
  processTime_ = FinishStage(progress_, script_);
  TheRun().counts.untranslatedRead = true;
}

}  // namespace lexmill
