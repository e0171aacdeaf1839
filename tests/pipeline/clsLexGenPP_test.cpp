// SPDX-License-Identifier: MIT
// What a pipeline does when its steps fail. Whole runs that succeed are in end_to_end.
#include "pipeline/clsLexGenPP.h"

#include <gtest/gtest.h>

#include "pipeline/clsLexGenOO.h"
#include "pipeline/clsLexGenOP.h"
#include "platform/host/clock.h"
#include "run/shared/option_set.h"
#include "run/shared/run_state.h"
#include "tests/support/headless_window.h"
#include "tests/support/readable_text.h"

namespace lexmill {
namespace {

using test::Ansi;

// A folder without the programs: each batch prints nothing, and no ready dictionary comes.
class RunWithoutPrograms : public testing::Test {
 protected:
  RunWithoutPrograms() {
    platform::OverrideClock({.tickCount = [] { return 1; },
                             .dayAndHour = {},
                             .random = [this] { return ++drawn_ / 1048576.0; }});
    RunOptions().txtLenLimit = 50;
    world_.window.cboToDo.Text(world_.folder.File("todo"));
    TheRun().reference = world_.folder.File("ref");
    world_.window.cboFinal.Text(world_.folder.File("final"));
  }
  ~RunWithoutPrograms() override { platform::OverrideClock({}); }

  // The first and last lines of all messages, one message a line.
  std::string Messages() const {
    std::string all;
    for (const auto& message : world_.session.messages) {
      const std::string text = test::Readable(message.text);
      const std::string place = text.substr(text.rfind(": ") + 2);
      all += text.substr(0, text.find('\r')) + " " + place + "\n";
    }
    return all;
  }
  std::string Row(std::int16_t i) const {
    return test::Readable(world_.window.lblState(i).Caption());
  }

  test::HeadlessWindow world_;
  int drawn_ = 0;
};

TEST_F(RunWithoutPrograms, GoesOnPastEachFailedStage) {
  clsLexGenPP().Start();
  EXPECT_EQ(Messages(),
            "错误:53 Class Module 'clsLexGLO1' -> 'DoItNow'\n"
            "错误:53 Class Module 'clsLexGLO2' -> 'DoItNow'\n"
            "错误:53 Class Module 'clsLexGLO3' -> 'DoItNow'\n");
  EXPECT_EQ(Row(2), "时间: 0ms");
  // The scripts stay, since no batch removed them; the batch script went at the normal end.
  EXPECT_EQ(world_.folder.Listing(), "final rad00002.sql rad00003.sql");
}

TEST_F(RunWithoutPrograms, LeavesOutPurificationForAPurifiedDatabase) {
  TheRun().RefDbPath = u"ref.db";
  test::WriteBytes(world_.folder.File("todo"), Ansi("Open\tOpen\n"));
  clsLexGenPP().Start();
  EXPECT_EQ(Messages(), "错误:53 Class Module 'clsLexGLO3' -> 'DoItNow'\n");
  EXPECT_EQ(Row(0), "");
  EXPECT_EQ(Row(1), "时间: 0ms 大小: 0KB");
}

TEST_F(RunWithoutPrograms, ShowsAMissingListingAndKeepsTheTemporaryFiles) {
  const std::string entry = Ansi("1:Open\nOpen\n");
  test::WriteBytes(world_.folder.File("todo"), entry);
  test::WriteBytes(world_.folder.File("ref"), entry);
  clsLexGenOO().Start();
  EXPECT_EQ(Messages(),
            "错误:53 Class Module 'clsLexUPB3' -> 'DoItNow'\n"
            "错误:53 Class Module 'clsLexGenOO' -> 'Start'\n");
  EXPECT_EQ(
      world_.folder.Listing(),
      "rad00002.sql rad00003.sql rad00004.sql rad00005.sql rad00008.bat rad00009.bat ref todo");
}

}  // namespace
}  // namespace lexmill
