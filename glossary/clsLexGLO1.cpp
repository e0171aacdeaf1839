// SPDX-License-Identifier: MIT
#include "glossary/clsLexGLO1.h"

#include "foundation/entry_point.h"
#include "glossary/glossary_entry.h"
#include "glossary/stage_steps.h"
#include "glossary/working_scripts.h"

namespace lexmill {

void clsLexGLO1::DoItNow() {
  ReportFailures(u"Class Module 'clsLexGLO1' -> 'DoItNow'", [this] {
    script_ = fileSystem_.CreateTextFile(outputFile_, true);
    ScanTabSeparated(*Awk, inputFile_);
  });
}

void clsLexGLO1::AwkControl(RecordScanner& objAwk) {
  Awk = &objAwk;
  connection_ =
      Awk->Connect([this] { ScanBegin(); }, [this] { ScanRecord(); }, [this] { ScanEnd(); });
}

void clsLexGLO1::ScanBegin() {
  progress_.Start();
  tally_.Start(inputFile_);
  WriteHeadLines(*script_, kReferenceScript);
}

void clsLexGLO1::ScanRecord() {
  ShowScanProgress(progress_, *Awk);
  const auto entry = ReadGlossaryEntry(*Awk);
  if (!entry) {
    tally_.MoreColumns();
    return;
  }
  const auto row = rules_.PurifyReference(entry->source, entry->target);
  if (row) {
    SetRowOfR(statement_, row->source, row->target);
    script_->WriteLine(statement_);
  }
  tally_.Reference(entry->source, entry->target, row.has_value());
}

void clsLexGLO1::ScanEnd() {
  WriteTailLines(*script_, kReferenceScript);
  processTime_ = FinishStage(progress_, script_);
}

}  // namespace lexmill
