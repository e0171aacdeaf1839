// SPDX-License-Identifier: MIT
// Runs whose user asks twice to close the window, at every moment at which it listens.
#include <utility>

#include "platform/host/clock.h"
#include "tests/end_to_end/whole_run.h"

namespace lexmill::test {
namespace {

class AbandonedRun : public WholeRun {
 protected:
  // Every look at the clock finds a refresh due.
  AbandonedRun() {
    platform::OverrideClock(
        {.tickCount = [now = 0]() mutable { return now += 501; }, .dayAndHour = {}, .random = {}});
  }
  ~AbandonedRun() override { platform::OverrideClock({}); }

  /// Performs a run over an older result, and closes the window twice at its refresh `moment`, from
  /// 0. @return false if the run has fewer
  bool Run(int moment) {
    WriteBytes(Dictionary("final"), "older");
    world_.window.cboToDo.Text(u"");  // so that the path enables the button once more
    world_.window.Show();
    world_.session.onDoEvents = [&, countdown = moment]() mutable {
      if (countdown-- == 0) {
        atTheMoment_ = ReadBytes(Dictionary("final"));
        world_.window.Window.Close();
        world_.window.Window.Close();
      }
    };
    Press("todo", "refer", "final");
    return !world_.window.Window.Visible();
  }

  std::string atTheMoment_;  ///< what stood in the result's place when the window was closed
};

TEST_F(AbandonedRun, LeavesTheEarlierResultAndNoTemporaryFile) {
  constexpr const char* kGlossary = "a\tx\nb\ty\n";
  constexpr const char* kTable = "source,target\na,x\nb,y\n";
  for (const auto& [dictionary, reference] :
       {std::pair("a\ta\nb\tb\n", kGlossary), std::pair("1:a\na\n2:b\nb\n", kGlossary),
        std::pair("msgid \"a\"\nmsgstr \"\"\nmsgid \"b\"\nmsgstr \"\"\n", kTable)}) {
    WriteBytes(Dictionary("todo"), dictionary);
    WriteBytes(Dictionary("refer"), reference);
    int moment = 0;
    for (; Run(moment); ++moment) {
      SCOPED_TRACE(std::string(dictionary) + " at " + std::to_string(moment));
      EXPECT_EQ(ReadBytes(Dictionary("final")), atTheMoment_);
      ExpectNoTemporaryFiles();
    }
    EXPECT_GT(moment, 10);
  }
}

TEST_F(AbandonedRun, KeepsTheTemporaryFilesThatAreWanted) {
  WriteBytes(Dictionary("todo"), "a\ta\n");
  WriteBytes(Dictionary("refer"), "a\tx\n");
  world_.window.chkaKeepTmpFile.Value(1);
  constexpr int kInTheSecondStage = 3;
  EXPECT_TRUE(Run(kInTheSecondStage));
  EXPECT_EQ(ReadBytes(Dictionary("final")), "older");
  EXPECT_NE(world_.folder.Listing().find(".bat"), std::string::npos);
}

}  // namespace
}  // namespace lexmill::test
