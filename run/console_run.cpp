// SPDX-License-Identifier: MIT
#include "run/console_run.h"

#include <array>
#include <cstdint>
#include <ostream>
#include <tuple>
#include <utility>
#include <vector>

#include "foundation/entry_point.h"
#include "platform/event.h"
#include "platform/files/file_system.h"
#include "platform/text/text.h"
#include "run/explanation.h"
#include "run/failure_notice.h"
#include "run/reference_list.h"
#include "run/run_hints.h"
#include "run/run_report.h"
#include "run/run_summary.h"
#include "run/shared/run_state.h"
#include "window/frmMain.h"

namespace lexmill {
namespace {

// A settings file that was asked for by name is meant to count, unlike the one of the program's
// folder, which need not be there.
bool IsReadable(const std::u16string& path) {
  bool result = false;
  IgnoreFailures([&] {
    std::ignore = platform::ReadBinary(path, 0, 1);
    result = true;
  });
  return result;
}

void TakeReferences(const ConsoleArguments& arguments) {
  TheRun().givenReferences = arguments.references;
  TheRun().firstReferenceOnly = TheRun().firstReferenceOnly || arguments.firstReferenceOnly;
}

void NoteHintsOfReferences() {
  std::vector<HintedDictionary> references;
  for (const Reference& reference : ReferencesOfRun()) {
    references.push_back({.path = reference.path, .kind = KindOf(reference.path)});
  }
  for (auto& hint : HintsOf({}, {}, references)) {
    NoteHint(std::move(hint));
  }
}

}  // namespace

bool SetOption(std::u16string_view name, std::u16string_view value) {
  platform::Control* control = frmMain::Instance().Window.Find(name);
  if (control == nullptr || control == &frmMain::Instance().chkAdvMode) {
    return false;
  }
  if (control->Kind() == platform::ControlKind::TextBox) {
    static_cast<platform::TextBox*>(control)->Text(value);
    return true;
  }
  if (control->Kind() == platform::ControlKind::CheckBox && (value == u"0" || value == u"1")) {
    static_cast<platform::CheckBox*>(control)->Value(value == u"1" ? 1 : 0);
    return true;
  }
  return false;
}

std::string SetOptions(const ConsoleArguments& arguments) {
  frmMain& window = frmMain::Instance();
  if (!arguments.settings.empty()) {
    if (!IsReadable(arguments.settings)) {
      return "can't read the settings file: " + platform::ToUtf8(arguments.settings);
    }
    window.CfgLoadMaxToCtrl();
    window.CfgLoadIniToCtrl(arguments.settings);
  }
  if (arguments.preset == Preset::Full) {
    window.CfgLoadMaxToCtrl();
  } else if (arguments.preset == Preset::Minimal) {
    window.CfgLoadMinToCtrl();
  }
  for (const auto& [name, value] : arguments.options) {
    if (!SetOption(name, value)) {
      return "no such option or value: " + platform::ToUtf8(name) + "=" + platform::ToUtf8(value);
    }
  }
  if (arguments.references.size() > 1 && window.chkSaveRefDB.Value() != 0) {
    return "chkSaveRefDB saves one reference, so it can't be set with --refer";
  }
  return {};
}

std::optional<bool> ExplainWanted(const ConsoleArguments& arguments, std::ostream& output) {
  TakeReferences(arguments);
  bool isKnown = false;
  const platform::Connection failures = FailureShown().Connect(NoteSubject);
  const bool isDone = ReportFailures(u"lexmill-run -> '--explain'", [&] {
    frmMain::Instance().CfgSaveCtrlToVar();
    KeepReferences(arguments.references.front());
    isKnown = ExplainString(arguments.explained, [&](std::u16string_view line) {
      output << platform::ToUtf8(line) << '\n';
    });
  });
  NoteHintsOfReferences();
  return isDone ? std::optional(isKnown) : std::nullopt;
}

void PressStart(const ConsoleArguments& arguments) {
  frmMain& window = frmMain::Instance();
  window.cboToDo.Text(arguments.toDo);
  window.cboRefer.Text(arguments.references.front());
  TakeReferences(arguments);
  window.cboFinal.Text(arguments.result);
  TheRun().reportPath = arguments.report;
  window.cmdStart.UserClicks();
}

std::string ProgressRows() {
  const frmMain& window = frmMain::Instance();
  const std::array titles{&window.lblSta1, &window.lblSta2, &window.lblSta3, &window.lblSta4};
  std::string rows;
  for (std::int16_t i = 0; i < window.lblState.Count(); ++i) {
    const auto& title = titles.at(static_cast<std::size_t>(i))->Caption();
    rows += platform::ToUtf8(title + u" " + window.lblState(i).Caption()) + "\n";
  }
  if (const std::u16string summary = SummaryOf(TheRun().counts); !summary.empty()) {
    rows += platform::ToUtf8(summary) + "\n";
  }
  return rows;
}

void PrintReport(std::ostream& output) {
  ReportFailures(u"lexmill-run -> '--report'", [&] {
    ReportAsTable([&](std::u16string_view line) { output << platform::ToUtf8(line) << '\n'; });
  });
}

std::string CurrentProgress() {
  const frmMain& window = frmMain::Instance();
  for (std::int16_t i = window.lblState.Count(); i-- > 0;) {
    if (!window.lblState(i).Caption().empty()) {
      return platform::ToUtf8(window.lblState(i).Caption());
    }
  }
  return {};
}

}  // namespace lexmill
