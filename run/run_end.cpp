// SPDX-License-Identifier: MIT
// The members of frmMain that say at the end of a run what it did.
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "foundation/entry_point.h"
#include "platform/host/same_file.h"
#include "platform/text/text.h"
#include "run/reference_list.h"
#include "run/run_hints.h"
#include "run/run_report.h"
#include "run/run_summary.h"
#include "run/shared/run_state.h"
#include "window/frmMain.h"

namespace lexmill {

void frmMain::PrepareReport() {
  RunState& run = TheRun();
  if (run.reportsBesideResult) {
    run.reportPath = cboFinal.Text() + u".report.txt";
  }
  run.strings = run.reportPath.empty() ? nullptr : std::make_unique<StringRecord>();
}

void frmMain::EndRun() {
  TheRun().untranslated = {};
  if (!TheRun().abandoned) {
    NoteHints();
    WriteReportFile();
  }
  if (!TheRun().counts.Complete()) {
    TheRun().strings = nullptr;  // nobody will ask for it
  }
  ShowSummary();
}

void frmMain::NoteHints() {
  const std::u16string& toDo = cboToDo.Text();
  // A catalog that is partly translated serves as its own reference.
  const bool isUseful = KindOf(toDo).isCatalog && TheRun().counts.referenceEntries > 0;
  std::vector<HintedDictionary> references;
  const auto add = [&](const std::u16string& path) {
    references.push_back({.path = path,
                          .kind = KindOf(path),
                          .isToDoFile = !isUseful && platform::IsSameFile(toDo, path)});
  };
  for (const Reference& reference : ReferencesOfRun()) {
    add(reference.path);
  }
  for (auto& hint : HintsOf(TheRun().counts, {.path = toDo, .kind = KindOf(toDo)}, references)) {
    NoteHint(std::move(hint));
  }
}

void frmMain::WriteReportFile() {
  const RunState& run = TheRun();
  if (!run.counts.Complete() || run.reportPath.empty() || run.reportPath == kStandardOutput) {
    return;
  }
  ReportFailures(u"Form 'frmMain' -> 'cmdStart_Click'", [&] {
    WriteReport(run.reportPath);
    lblSummary.HandPointer(true);
  });
}

void frmMain::ShowSummary() {
  std::u16string text = SummaryOf(TheRun().counts);
  for (const RunNotice& notice : TheRun().notices) {
    text.append(text.empty() ? u"" : u"；").append(notice.text);
  }
  lblSummary.Caption(platform::ReplaceAll(text, u"&", u"&&"));
  lblSummary.ToolTipText(text);
}

}  // namespace lexmill
