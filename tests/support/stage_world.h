// SPDX-License-Identifier: MIT
// tests/support: a small world for tests.
// What a stage is run in: a folder, the scanner, a row of the window, the options of the full
// preset.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include <gtest/gtest.h>

#include "glossary/record_scanner.h"
#include "platform/controls/controls.h"
#include "platform/headless/headless.h"
#include "platform/host/clock.h"
#include "run/shared/option_set.h"
#include "run/shared/run_state.h"
#include "tests/support/files.h"
#include "tests/support/readable_text.h"

namespace lexmill::test {

// What comes before and after the rows of two scripts that both formats write.
inline const std::string kHeadOfR = "BEGIN TRANSACTION;\nCREATE TABLE R(r1 TEXT,r2 TEXT);\n";
inline const std::string kTailOfR = "CREATE INDEX irm ON R(r1);\nCOMMIT;\n";
inline const std::string kHeadOfS =
    "BEGIN TRANSACTION;\nCREATE TABLE S(so TEXT,sh TEXT,sm TEXT,sk TEXT,st TEXT);\n";
inline const std::string kTailOfS = "CREATE INDEX ism ON S(sm);\nCOMMIT;\n";

class StageWorld : public testing::Test {
 protected:
  StageWorld() {
    platform::headless::TheSession() = {};
    RunOptions() = FullPreset();
    TheRun() = {};
  }
  ~StageWorld() override { platform::OverrideClock({}); }

  /// Makes each look at the clock find it 100 milliseconds later, the first one at 100.
  static void LetTheClockRun() {
    platform::ClockOverride clock;
    clock.tickCount = [now = 0]() mutable { return now += 100; };
    platform::OverrideClock(std::move(clock));
  }

  /// Runs a stage from `in` to `out` and releases it. @return its ProcessTime
  template <class Stage>
  std::int32_t Run(const std::u16string& in, const std::u16string& out) {
    Stage stage;
    if constexpr (requires { stage.AwkControl(awk); }) {
      awk.ScanAction(RecordScanner::kReset);
      stage.AwkControl(awk);
    }
    stage.StateLabel(label);
    stage.InputFile(in);
    if constexpr (requires { stage.OutputFile(out); }) {
      stage.OutputFile(out);
    } else {
      stage.OutputFile1(out);
      stage.OutputFile2(folder.File("second"));
    }
    stage.DoItNow();
    return stage.ProcessTime();
  }

  /// What a stage makes of `input`: both are UTF-8 with LF here, code page and CR LF in the files.
  template <class Stage>
  std::string OutputFor(std::string_view input) {
    WriteBytes(folder.File("in"), Ansi(input));
    Run<Stage>(folder.File("in"), folder.File("out"));
    return Output();
  }
  /// The output, or the first one of two; "\r" stands for a CR that belongs to no line end.
  [[nodiscard]] std::string Output() const { return FromAnsiBytes(ReadBytes(folder.File("out"))); }
  [[nodiscard]] std::string SecondOutput() const {
    return FromAnsiBytes(ReadBytes(folder.File("second")));
  }

  /// All message boxes so far, line ends as LF, one empty line between two.
  static std::string Messages() {
    std::string result;
    for (const auto& message : platform::headless::TheSession().messages) {
      result += result.empty() ? "" : "\n\n";
      result += Readable(platform::ReplaceAll(message.text, u"\r\n", u"\n"));
    }
    return result;
  }

  /// Collects the row's caption at each refresh into `captions`, a blank between two.
  void CollectCaptions(std::string& captions) {
    platform::headless::TheSession().onDoEvents = [this, &captions] {
      captions.append(captions.empty() ? "" : " ").append(Readable(label.Caption()));
    };
  }

  OrdinaryUser user;  ///< whose mistakes leave the machine's files and devices alone
  TemporaryFolder folder;
  RecordScanner awk;
  platform::Label label;
};

}  // namespace lexmill::test
