// SPDX-License-Identifier: MIT
// The members of frmMain that carry a run.
#include <cstdint>

#include "foundation/entry_point.h"
#include "pipeline/clsLexGenOO.h"
#include "pipeline/clsLexGenOP.h"
#include "pipeline/clsLexGenPO.h"
#include "pipeline/clsLexGenPP.h"
#include "platform/controls/desktop.h"
#include "platform/failure.h"
#include "run/dictionary_encoding.h"
#include "run/dictionary_format.h"
#include "run/purified_database.h"
#include "run/shared/run_state.h"
#include "window/frmMain.h"
#include "window/path_history.h"

namespace lexmill {
namespace {

using modMain::DictionaryFormat;

constexpr platform::Color kWaitingText = 0xC56A31;

// The formats of a run's two dictionaries, and the language pair that their heads tell.
struct DetectedFormats {
  DictionaryFormat toDo = DictionaryFormat::Unknown;
  DictionaryFormat refer = DictionaryFormat::Unknown;
  std::u16string pair;
};

// A purified database is taken for a glossary without a look at the file. Of two heads with known
// languages the reference's counts.
DetectedFormats DetectFormats(const frmMain& window) {
  DetectedFormats found;
  found.toDo = modMain::DetectDictionaryFormat(window.cboToDo.Text(), found.pair);
  found.refer = TheRun().RefDbPath.empty()
                    ? modMain::DetectDictionaryFormat(window.cboRefer.Text(), found.pair)
                    : DictionaryFormat::PassoloGlossary;
  return found;
}

void Dispatch(const DetectedFormats& formats) {
  const bool textToDo = formats.toDo == DictionaryFormat::DianjingText;
  const bool textRefer = formats.refer == DictionaryFormat::DianjingText;
  if (textToDo && textRefer) {
    clsLexGenOO().Start();
    return;
  }
  TheRun().LanguagePair = formats.pair;
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
  Window.Busy(true);
  const bool finished =
      ReportFailures(u"Form 'frmMain' -> 'cmdStart_Click'", [this] { CarryRun(); });
  if (!finished) {
    picState.ZOrderFront();
    SetControlsVisible(true);
    chkAdvMode.Value(0);
    platform::SetMousePointer(platform::MousePointer::Default);
  }
  Window.Busy(false);
}

void frmMain::CarryRun() {
  platform::SetMousePointer(platform::MousePointer::Hourglass);
  SetControlsVisible(false);
  ClearProgress();
  platform::DoEvents();
  CfgSaveCtrlToVar();
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
}

void frmMain::RunDictionaries() {
  RunState& run = TheRun();
  run.RefDbPath = modMain::IsPurifiedDatabase(cboRefer.Text()) ? cboRefer.Text() : u"";
  KeepEncodings(cboToDo.Text(), run.RefDbPath.empty() ? cboRefer.Text() : u"");
  const DetectedFormats formats = DetectFormats(*this);
  if (formats.toDo == DictionaryFormat::Unknown || formats.refer == DictionaryFormat::Unknown) {
    throw platform::Failure(1, u"不能检测出“未译字典”或“参照字典”的文件格式");
  }
  Dispatch(formats);
}

}  // namespace lexmill
