// SPDX-License-Identifier: MIT
#include "text/clsLexUPB3.h"

#include "foundation/entry_point.h"
#include "glossary/entry_tally.h"
#include "glossary/ready_dictionary.h"
#include "glossary/stage_steps.h"
#include "glossary/working_scripts.h"
#include "run/shared/option_set.h"
#include "run/shared/run_state.h"

namespace lexmill {

void clsLexUPB3::DoItNow() {
  ReportFailures(u"Class Module 'clsLexUPB3' -> 'DoItNow'", [this] {
    script_ = fileSystem_.CreateTextFile(outputFile_, true);
    ScanTabSeparated(*Awk, inputFile_);
  });
}

void clsLexUPB3::AwkControl(RecordScanner& objAwk) {
  Awk = &objAwk;
  connection_ =
      Awk->Connect([this] { ScanBegin(); }, [this] { ScanRecord(); }, [this] { ScanEnd(); });
}

void clsLexUPB3::ScanBegin() {
  progress_.Start();
  WriteUpdateHeadLine(*script_);
}

void clsLexUPB3::ScanRecord() {
  ShowScanProgress(progress_, *Awk);
  if (const auto row = ReadReadyRow(*Awk)) {
    target_.clear();
    RebuildTarget(*row, !RunOptions().chkNotAddANDX, target_);
    SetUpdateOfO(statement_, target_, row->so);
    script_->WriteLine(statement_);
    CountTranslation(row->so, target_);
  }
}

void clsLexUPB3::ScanEnd() {
  WriteUpdateTailLine(*script_);
  processTime_ = FinishStage(progress_, script_);
  TheRun().counts.readyRead = true;
}

}  // namespace lexmill
