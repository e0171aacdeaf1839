// SPDX-License-Identifier: MIT
// The members of frmMain that carry a run.
#include <cstdint>
#include <initializer_list>
#include <string>

#include "foundation/entry_point.h"
#include "pipeline/clsLexGenOO.h"
#include "pipeline/clsLexGenOP.h"
#include "pipeline/clsLexGenPO.h"
#include "pipeline/clsLexGenPP.h"
#include "platform/controls/desktop.h"
#include "platform/failure.h"
#include "platform/host/process.h"
#include "run/catalog_run.h"
#include "run/dictionary_encoding.h"
#include "run/dictionary_format.h"
#include "run/failure_notice.h"
#include "run/file_inspection.h"
#include "run/purified_database.h"
#include "run/shared/run_state.h"
#include "window/frmMain.h"
#include "window/path_history.h"

namespace lexmill {
namespace {

using modMain::DictionaryFormat;

constexpr platform::Color kWaitingText = 0xC56A31;

// Works out what each dictionary is: first the encoding, in which its lines are then read for its
// format. Returns the language pair; of two heads with known languages the later one's counts.
std::u16string KeepKinds(std::initializer_list<std::u16string> paths) {
  auto& dictionaries = TheRun().dictionaries;
  for (const auto& path : paths) {
    if (!dictionaries.contains(path)) {
      dictionaries[path] = RecogniseEncoding(path);
      dictionaries[path].facts = InspectFile(path);
    }
  }
  std::u16string pair;
  for (const auto& path : paths) {
    DictionaryKind& kind = dictionaries[path];
    if (kind.format == DictionaryFormat::Unknown) {
      kind.format = modMain::DetectDictionaryFormat(path, pair);
    }
  }
  return pair;
}

// A purified database is taken for a glossary without a look at the file.
DictionaryFormat FormatOfReference(const std::u16string& path) {
  return TheRun().RefDbPath.empty() ? KindOf(path).format : DictionaryFormat::PassoloGlossary;
}

void Dispatch(DictionaryFormat toDo, DictionaryFormat refer, const std::u16string& pair) {
  const bool textToDo = toDo == DictionaryFormat::DianjingText;
  const bool textRefer = refer == DictionaryFormat::DianjingText;
  if (textToDo && textRefer) {
    clsLexGenOO().Start();
    return;
  }
  TheRun().LanguagePair = pair;
  if (textToDo) {
    clsLexGenOP().Start();
  } else if (textRefer) {
    clsLexGenPO().Start();
  } else {
    clsLexGenPP().Start();
  }
}

}  // namespace

// A close request that comes in the middle of a run is kept until the window is no longer busy.
void frmMain::cmdStart_Click() {
  TheRun().abandoned = false;
  TheRun().notices.clear();
  TheRun().counts = {};
  Window.Busy(true);
  const platform::Connection failures = FailureShown().Connect(NoteSubject);
  const bool finished =
      ReportFailures(u"Form 'frmMain' -> 'cmdStart_Click'", [this] { PerformRun(); });
  if (!finished) {
    picState.ZOrderFront();
    SetControlsVisible(true);
    chkAdvMode.Value(0);
    platform::SetMousePointer(platform::MousePointer::Default);
  }
  EndRun();
  Window.Busy(false);
}

void frmMain::AbandonRun() {
  TheRun().abandoned = true;
  platform::EndChildProcesses();
}

void frmMain::PerformRun() {
  platform::SetMousePointer(platform::MousePointer::Hourglass);
  SetControlsVisible(false);
  ClearProgress();
  platform::DoEvents();
  CfgSaveCtrlToVar();
  PrepareReport();
  RunDictionaries();
  picState.ZOrderFront();
  modMain::AddComboHistory(cboToDo, cboToDo.Text());
  modMain::AddComboHistory(cboRefer, cboRefer.Text());
  modMain::AddComboHistory(cboFinal, cboFinal.Text());
  SetControlsVisible(true);
  chkAdvMode.Value(0);
  platform::SetMousePointer(platform::MousePointer::Default);
  platform::DoEvents();
}

void frmMain::ClearProgress() {
  for (std::int16_t i = 0; i < lblState.Count(); ++i) {
    lblState(i).BackColor(platform::kWhite);
    shpState(i).BackColor(platform::kWhite);
    lblState(i).ForeColor(kWaitingText);
    lblState(i).Caption(u"");
  }
  lblSummary.Caption(u"");
  lblSummary.ToolTipText(u"");
  lblSummary.HandPointer(false);
}

void frmMain::RunDictionaries() {
  RunState& run = TheRun();
  run.dictionaries.clear();
  CatalogRun catalogs;
  run.RefDbPath = modMain::IsPurifiedDatabase(cboRefer.Text()) ? cboRefer.Text() : u"";
  catalogs.TakeUntranslated(cboToDo.Text(), cboFinal.Text(), {cboRefer.Text()});
  if (run.RefDbPath.empty()) {
    catalogs.TakeReference(cboRefer.Text());
  }
  const std::u16string pair = run.RefDbPath.empty() ? KeepKinds({cboToDo.Text(), cboRefer.Text()})
                                                    : KeepKinds({cboToDo.Text()});
  if (FormatOfReference(cboRefer.Text()) == DictionaryFormat::Unknown) {
    catalogs.TakeTable(cboRefer.Text());
  }
  run.resultEncoding = ResultEncoding(cboToDo.Text(), std::array{cboRefer.Text()});
  const DictionaryFormat toDo = KindOf(cboToDo.Text()).format;
  const DictionaryFormat refer = FormatOfReference(cboRefer.Text());
  if (toDo == DictionaryFormat::Unknown || refer == DictionaryFormat::Unknown) {
    throw platform::Failure(1, u"不能检测出“未译字典”或“参照字典”的文件格式",
                            toDo == DictionaryFormat::Unknown ? cboToDo.Text() : cboRefer.Text());
  }
  Dispatch(toDo, refer, pair);
  catalogs.SettleCounts();
  catalogs.WriteResult(cboFinal.Text());
}

}  // namespace lexmill
