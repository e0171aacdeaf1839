// SPDX-License-Identifier: MIT
// Every single call to the host fails once, in each process of a run, for each pair of formats.
#include <set>
#include <sstream>
#include <string>

#include "platform/sqlite/shell/shell.h"
#include "tests/end_to_end/whole_run.h"
#include "tests/faults/shared_faults.h"
#include "tests/support/readable_text.h"

namespace lexmill::test {
namespace {

using platform::HostCall;
using platform::HostError;

constexpr const char* kOld = "an older result\r\n";
constexpr const char* kHead = "9 1\t4 2\n";
/// So many that the buffers of the large files are written more than once.
constexpr int kEntries = 1500;

struct Pair {
  const char* name;
  bool toDoIsText;
  bool referIsText;
};

std::string Name(const testing::TestParamInfo<Pair>& pair) {
  return pair.param.name;
}

void PrintTo(const Pair& pair, std::ostream* stream) {
  *stream << pair.name;
}

struct FailingCall {
  HostCall kind;
  HostError error;
  const char* name;
};

/// Each kind of call that a run makes; none cuts a file (storage_fault_test.cpp).
constexpr FailingCall kCalls[] = {
    {HostCall::Open, HostError::Device, "open"},
    {HostCall::Read, HostError::Device, "read"},
    {HostCall::Write, HostError::Full, "write"},
    {HostCall::Synchronise, HostError::Device, "flush"},
    {HostCall::Close, HostError::Device, "close"},
    {HostCall::Rename, HostError::Denied, "rename"},
    {HostCall::Remove, HostError::Denied, "remove"},
    {HostCall::Start, HostError::Device, "start"},
};

std::string Source(int i) {
  return "The quick brown fox jumps over the lazy dog, " + std::to_string(i);
}

std::string Target(int i) {
  return "译文" + std::to_string(i);
}

/// A glossary of all entries, and below it a text of them, with targets that `target` gives.
std::string Glossary(std::string (*target)(int)) {
  std::string lines = kHead;
  for (int i = 0; i < kEntries; ++i) {
    lines += Source(i) + "\t" + target(i) + "\n";
  }
  return lines;
}

std::string Text(std::string (*target)(int)) {
  std::string lines;
  for (int i = 0; i < kEntries; ++i) {
    lines += "\n" + std::to_string(i) + ":" + Source(i) + "\n" + target(i) + "\n";
  }
  return lines;
}

class FaultWalk : public WholeRun, public testing::WithParamInterface<Pair> {
 protected:
  FaultWalk() {
    const auto [name, toDoIsText, referIsText] = GetParam();
    const auto& toDo = toDoIsText ? Text : Glossary;
    WriteBytes(Dictionary("todo"), Ansi(toDo(Source)));
    WriteBytes(Dictionary("refer"), Ansi(referIsText ? Text(Target) : Glossary(Target)));
    whole_ = Ansi(toDo(Target));
    // What a run leaves whose stages or whose batch failed: nothing, the head alone, all entries as
    // they were.
    allowed_ = {whole_, kOld, "", toDoIsText ? "\r\n" : Ansi(kHead)};
    if (toDoIsText) {
      allowed_.insert(Ansi(Text(Source)));
    } else {
      // Without the table of languages no line names the two languages.
      allowed_.insert(whole_.substr(Ansi(kHead).size()));
    }
    world_.window.chkSaveRefDB.Value(1);
    world_.window.txtSaveRefDB.Text(Dictionary("saved.db"));
  }

  void Run() {
    WriteBytes(Dictionary("final"), kOld);
    world_.session.messages.clear();
    Press("todo", "refer", "final");
  }

  std::string Result() const { return ReadBytes(Dictionary("final")); }

  void ExpectReadableMessages() const {
    for (const auto& message : world_.session.messages) {
      std::istringstream lines(Readable(message.text));
      std::string number, description, place;
      EXPECT_TRUE(std::getline(lines, number) && std::getline(lines, description) &&
                  std::getline(lines, place));
      EXPECT_GT(std::stoi(number.substr(number.find(':') + 1)), 0);
      EXPECT_GT(description.size(), 1U);
      EXPECT_TRUE(place.starts_with("源代码位置: "));
    }
  }

  /// A saved database is not there, or holds every entry of the reference.
  void ExpectWholeOrNoDatabase() const {
    const auto path = dictionaries_.Path() / "saved.db";
    if (!std::filesystem::exists(path)) {
      return;
    }
    std::string rows, errors;
    const std::vector<std::string> words = {"sqlite", path.string(), "SELECT r1,r2 FROM R"};
    std::ignore = platform::sqlite::RunShell(
        words, {[](std::span<char>) { return std::optional<std::size_t>(0); },
                [&](std::string_view bytes) { return rows += bytes, true; },
                [&](std::string_view bytes) { return errors += bytes, true; }});
    // The head of a glossary is an entry like any other here.
    std::string expected = GetParam().referIsText ? "" : "9 1|4 2\n";
    for (int i = 0; i < kEntries; ++i) {
      expected += Source(i) + "|" + Target(i) + "\n";
    }
    EXPECT_TRUE(rows == Ansi(expected)) << errors << rows.substr(0, 200);
  }

  void ExpectNothingLost() const {
    EXPECT_TRUE(allowed_.contains(Result())) << Result().substr(0, 200);
    ExpectReadableMessages();
    ExpectWholeOrNoDatabase();
  }

  FaultInjection faults_{world_.folder.Path() / "faults"};
  std::string whole_;
  std::set<std::string> allowed_;
};

TEST_P(FaultWalk, LosesNothingWhicheverCallFails) {
  int failures = 0;
  for (const auto& call : kCalls) {
    const int failuresBefore = failures;
    bool hasFailed = true;
    for (int n = 1; hasFailed && !HasFailure(); ++n) {
      SCOPED_TRACE(std::string(call.name) + " " + std::to_string(n));
      faults_.Arm(call.kind, call.error, n);
      Run();
      hasFailed = faults_.Disarm();
      failures += hasFailed ? 1 : 0;
      ExpectNothingLost();
      if (call.kind != HostCall::Remove) {
        EXPECT_EQ(dictionaries_.Listing().find(".lexmill-"), std::string::npos);
      }
    }
    EXPECT_GT(failures, failuresBefore) << "no call of this kind: " << call.name;
    // What failed runs have left in the program's folder doesn't disturb the next one.
    Run();
    EXPECT_TRUE(Result() == whole_) << call.name;
    EXPECT_TRUE(world_.session.messages.empty());
  }
  world_.session.messages.clear();
  RecordProperty("failingCalls", failures);
}

INSTANTIATE_TEST_SUITE_P(Pairs, FaultWalk,
                         testing::Values(Pair{"PP", false, false}, Pair{"PO", false, true},
                                         Pair{"OP", true, false}, Pair{"OO", true, true}),
                         Name);

}  // namespace
}  // namespace lexmill::test
