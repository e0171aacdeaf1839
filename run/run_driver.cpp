// SPDX-License-Identifier: MIT
// The members of frmMain that perform a run.
#include <cstdint>
#include <string>
#include <vector>

#include "foundation/entry_point.h"
#include "pipeline/clsLexGenOO.h"
#include "pipeline/clsLexGenOP.h"
#include "pipeline/clsLexGenPO.h"
#include "pipeline/clsLexGenPP.h"
#include "platform/controls/desktop.h"
#include "platform/failure.h"
#include "platform/host/host_path.h"
#include "platform/host/process.h"
#include "platform/host/same_file.h"
#include "run/catalog_run.h"
#include "run/dictionary_encoding.h"
#include "run/dictionary_format.h"
#include "run/failure_notice.h"
#include "run/reference_list.h"
#include "run/shared/option_set.h"
#include "run/shared/run_state.h"
#include "window/frmMain.h"
#include "window/path_history.h"

namespace lexmill {
namespace {

using modMain::DictionaryFormat;

constexpr platform::Color kWaitingText = 0xC56A31;

std::vector<std::u16string> PathsOfReferences() {
  std::vector<std::u16string> paths;
  for (const Reference& reference : ReferencesOfRun()) {
    paths.push_back(reference.path);
  }
  return paths;
}

// Those of them that are no purified databases.
std::vector<std::u16string> ReferenceDictionaries() {
  std::vector<std::u16string> paths;
  for (const Reference& reference : ReferencesOfRun()) {
    if (!reference.isDatabase) {
      paths.push_back(reference.path);
    }
  }
  return paths;
}

// The dictionaries that the run reads, the untranslated one first.
std::vector<std::u16string> PathsOfDictionaries(const std::u16string& toDo) {
  std::vector<std::u16string> paths = ReferenceDictionaries();
  paths.insert(paths.begin(), toDo);
  return paths;
}

// Works out what each dictionary is: first the encoding, in which its lines are then read for its
// format. Returns the language pair; of the heads of the untranslated dictionary and the first
// reference, if both name known languages, the reference's counts.
std::u16string KeepKinds(const std::u16string& toDo) {
  const auto paths = PathsOfDictionaries(toDo);
  for (const auto& path : paths) {
    KeepEncoding(path);
  }
  std::u16string pair;
  std::u16string ignored;
  for (const auto& path : paths) {
    DictionaryKind& kind = TheRun().dictionaries[path];
    const bool decides = path == toDo || path == TheRun().reference;
    if (kind.format == DictionaryFormat::Unknown) {
      kind.format = modMain::DetectDictionaryFormat(path, decides ? pair : ignored);
    }
  }
  return pair;
}

// A purified database is taken for a glossary without a look at the file.
DictionaryFormat FormatOfReference() {
  const RunState& run = TheRun();
  return run.RefDbPath.empty() ? KindOf(run.reference).format : DictionaryFormat::PassoloGlossary;
}

void RefuseUnknownFormats(const std::u16string& toDo) {
  for (const auto& path : PathsOfDictionaries(toDo)) {
    if (KindOf(path).format == DictionaryFormat::Unknown) {
      modMain::RefuseUnknownFormat(path);
    }
  }
}

// The saved database takes the place of no dictionary that the run reads.
void RefuseToSaveOverDictionaries(const std::u16string& toDo) {
  const OptionSet& options = RunOptions();
  if (!options.chkSaveRefDB || options.txtSaveRefDB.empty()) {
    return;
  }
  const std::u16string saved = platform::PathFrom(WorkFolder(), options.txtSaveRefDB);
  for (const auto& path : PathsOfDictionaries(toDo)) {
    if (platform::IsSameFile(path, saved)) {
      throw platform::Failure(1, u"“" + path + u"”是要读的字典，不能存成数据库");
    }
  }
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
  const std::u16string toDo = cboToDo.Text();
  TheRun().dictionaries.clear();
  CatalogRun catalogs(cboFinal.Text());
  KeepReferences(cboRefer.Text());
  RefuseToSaveOverDictionaries(toDo);
  catalogs.TakeUntranslated(toDo, PathsOfReferences());
  const auto references = ReferenceDictionaries();
  for (const auto& path : references) {
    catalogs.TakeReference(path);
  }
  const std::u16string pair = KeepKinds(toDo);
  for (const auto& path : references) {
    if (KindOf(path).format == DictionaryFormat::Unknown) {
      catalogs.TakeTable(path);
    }
  }
  TheRun().resultEncoding = ResultEncoding(toDo, PathsOfReferences());
  RefuseUnknownFormats(toDo);
  Dispatch(KindOf(toDo).format, FormatOfReference(), pair);
  catalogs.WriteResult();
}

}  // namespace lexmill
