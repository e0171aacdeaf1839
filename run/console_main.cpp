// SPDX-License-Identifier: MIT
// lexmill-run: one run of the window without a screen.
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "foundation/entry_point.h"
#include "platform/files/platform_settings.h"
#include "platform/files/profile_file.h"
#include "platform/headless/headless.h"
#include "platform/host/application.h"
#include "platform/host/host_path.h"
#include "platform/host/host_system.h"
#include "platform/host/process.h"
#include "platform/host/program_start.h"
#include "platform/host/standard_streams.h"
#include "platform/host/termination.h"
#include "platform/text/text.h"
#include "run/catalog_task.h"
#include "run/console_arguments.h"
#include "run/console_run.h"
#include "run/failure_notice.h"
#include "run/modMain.h"
#include "run/run_summary.h"
#include "run/shared/run_state.h"
#include "run/shell_complaint.h"
#include "window/frmMain.h"

namespace {

constexpr int kFailed = 1;
constexpr int kWrongArguments = 2;
constexpr int kTooLittleFilled = 3;
constexpr int kUnknownString = 3;

std::vector<std::string> WordsAfterName(int count, const char* const* words) {
  std::vector<std::string> result;
  for (const auto& word : lexmill::platform::ProgramWords(count, words)) {
    result.push_back(lexmill::platform::ToUtf8(word));
  }
  result.erase(result.begin());
  return result;
}

int RefuseArguments(const std::string& reason) {
  std::cerr << "lexmill-run: " << reason << "\n" << lexmill::kConsoleUsage;
  return kWrongArguments;
}

// Reports which of the programs that a run calls are missing; the run continues all the same.
bool ReportMissingPrograms() {
  bool all = true;
  for (const auto* name : {u"batch", u"sqlite"}) {
    if (!lexmill::platform::IsProgramThere(name, lexmill::WorkFolder())) {
      std::cerr << "lexmill-run: the program '" << lexmill::platform::ToUtf8(name)
                << "' is missing\n";
      all = false;
    }
  }
  return all;
}

bool ReportComplaint(const std::string& complaint) {
  if (!complaint.empty()) {
    std::cerr << "lexmill-run: the database shell says: " << complaint << "\n";
  }
  return complaint.empty();
}

// Returns true if no notice is about a failure.
bool ReportNotices() {
  bool isDone = true;
  for (const lexmill::RunNotice& notice : lexmill::TheRun().notices) {
    std::cerr << "lexmill-run: " << lexmill::platform::ToUtf8(notice.text) << "\n";
    isDone = isDone && !notice.isFailure;
  }
  return isDone;
}

// The children are a family of their own, which no key on the terminal reaches.
void EndIfAsked() {
  if (lexmill::platform::IsTerminationRequested()) {
    lexmill::frmMain::Instance().AbandonRun();
  }
}

void EndChildrenWithUs() {
  lexmill::platform::HoldTerminationRequests();
  lexmill::platform::SetWaiting(EndIfAsked);
  // A reader of our messages that goes away is no reason to leave the run half done.
  lexmill::platform::SurviveBrokenPipes();
}

bool IsWatched() {
  return lexmill::platform::IsTerminal(lexmill::platform::StandardStream::Error);
}

// Shows the moving percentages where somebody watches.
void ShowProgress() {
  EndIfAsked();
  if (IsWatched()) {
    std::cerr << "\r\033[K" << lexmill::CurrentProgress() << std::flush;
  }
}

void ClearProgress() {
  if (IsWatched()) {
    std::cerr << "\r\033[K";
  }
}

// Converts or fills without a run.
int PerformTask(const lexmill::ConsoleArguments& arguments) {
  const lexmill::platform::Connection failures =
      lexmill::FailureShown().Connect(lexmill::NoteSubject);
  const bool isDone = lexmill::ReportFailures(u"Module 'catalog_task' -> 'PerformTask'", [&] {
    if (arguments.task == lexmill::ConsoleTask::Convert) {
      lexmill::ConvertCatalogs(arguments.paths);
    } else {
      std::cout << lexmill::platform::ToUtf8(lexmill::FillCatalogFrom(arguments.paths)) << "\n";
    }
  });
  ReportNotices();
  return isDone ? 0 : kFailed;
}

// Shows progress, ends with our children when asked to, and lets `complaint` hear what they print.
void WatchChildren(lexmill::ShellComplaint& complaint) {
  EndChildrenWithUs();
  lexmill::platform::headless::TheSession().onDoEvents = ShowProgress;
  lexmill::platform::SetOutputWatch([&](std::string_view bytes) { complaint.Feed(bytes); });
}

int PerformExplanation(const lexmill::ConsoleArguments& arguments) {
  lexmill::ShellComplaint complaint;
  WatchChildren(complaint);
  std::ostringstream text;
  const auto isKnown = lexmill::ExplainWanted(arguments, text);
  ClearProgress();
  lexmill::platform::EndAsRequested();
  std::cout << text.str();
  const bool allListed = ReportComplaint(complaint.Text());
  const bool allDone = ReportNotices();
  if (!isKnown) {
    ReportMissingPrograms();
  }
  if (!isKnown || !allListed || !allDone) {
    return kFailed;
  }
  return *isKnown ? 0 : kUnknownString;
}

int PerformRun(const lexmill::ConsoleArguments& arguments) {
  const bool programsThere = ReportMissingPrograms();
  lexmill::ShellComplaint complaint;
  WatchChildren(complaint);
  lexmill::PressStart(arguments);
  ClearProgress();
  lexmill::platform::EndAsRequested();
  std::cout << lexmill::ProgressRows();
  if (arguments.report == lexmill::kStandardOutput && lexmill::TheRun().counts.Complete()) {
    lexmill::PrintReport(std::cout);
  }
  const bool allLoaded = ReportComplaint(complaint.Text());
  const bool allDone = ReportNotices();
  const bool noneShown = lexmill::platform::headless::TheSession().messages.empty();
  if (!programsThere || !allLoaded || !allDone || !noneShown) {
    return kFailed;
  }
  const double share = lexmill::FilledPercent(lexmill::TheRun().counts);
  return arguments.failBelow && share < *arguments.failBelow ? kTooLittleFilled : 0;
}

int Perform(const lexmill::ConsoleArguments& arguments) {
  lexmill::platform::headless::TheSession().messagesToStandardError = true;
  lexmill::platform::KeepProfileWritesInMemory();
  lexmill::modMain::Main();
  if (!arguments.workFolder.empty()) {
    lexmill::TheRun().WorkDir = lexmill::platform::WithSeparator(arguments.workFolder);
  }
  if (const std::string wrong = lexmill::SetOptions(arguments); !wrong.empty()) {
    return RefuseArguments(wrong);
  }
  lexmill::TheRun().catalogOptions = arguments.catalogs;
  switch (arguments.task) {
    case lexmill::ConsoleTask::Run:
      return PerformRun(arguments);
    case lexmill::ConsoleTask::Explain:
      return PerformExplanation(arguments);
    default:
      return PerformTask(arguments);
  }
}

}  // namespace

int main(int argc, char** argv) {
  lexmill::platform::SurviveFileSizeLimit();
  lexmill::platform::PrepareOutput();
  const auto arguments = lexmill::ReadConsoleArguments(WordsAfterName(argc, argv));
  if (const auto* wrong = std::get_if<lexmill::WrongArguments>(&arguments)) {
    return RefuseArguments(wrong->reason);
  }
  if (const auto* wanted = std::get_if<lexmill::WantedText>(&arguments)) {
    std::cout << wanted->text;
    return 0;
  }
  const auto& wanted = std::get<lexmill::ConsoleArguments>(arguments);
  if (!wanted.codePage.empty()) {
    lexmill::platform::PassOnCodePage(wanted.codePage);
  }
  lexmill::platform::ReadPlatformSettings();
  return Perform(wanted);
}
