// SPDX-License-Identifier: MIT
#include "glossary/clsLexGLO3.h"

#include "foundation/entry_point.h"
#include "glossary/entry_tally.h"
#include "glossary/ready_dictionary.h"
#include "glossary/stage_steps.h"
#include "run/shared/option_set.h"
#include "run/shared/run_state.h"

namespace lexmill {

void clsLexGLO3::DoItNow() {
  ReportFailures(u"Class Module 'clsLexGLO3' -> 'DoItNow'", [this] {
    output_ = fileSystem_.CreateTextFile(outputFile_, true, TheRun().resultEncoding);
    ScanTabSeparated(*Awk, inputFile_);
    if (TheRun().abandoned) {
      output_->Discard();
    }
  });
}

void clsLexGLO3::AwkControl(RecordScanner& objAwk) {
  Awk = &objAwk;
  connection_ =
      Awk->Connect([this] { ScanBegin(); }, [this] { ScanRecord(); }, [this] { ScanEnd(); });
}

void clsLexGLO3::ScanBegin() {
  progress_.Start();
  if (!TheRun().LanguagePair.empty()) {
    output_->WriteLine(TheRun().LanguagePair);
  }
}

void clsLexGLO3::ScanRecord() {
  ShowScanProgress(progress_, *Awk);
  if (const auto row = ReadReadyRow(*Awk)) {
    line_ = row->so;
    line_ += u'\t';
    RebuildTarget(*row, !RunOptions().chkNotAddANDX, line_);
    output_->WriteLine(line_);
    CountTranslation(row->so, std::u16string_view(line_).substr(row->so.size() + 1));
  }
}

void clsLexGLO3::ScanEnd() {
  processTime_ = FinishStage(progress_, output_);
  TheRun().counts.readyRead = true;
  TheRun().counts.resultWritten = true;
}

}  // namespace lexmill
