// SPDX-License-Identifier: MIT
#include "pipeline/console_step.h"

#include <gtest/gtest.h>

#include "platform/host/clock.h"
#include "tests/support/headless_window.h"
#include "tests/support/readable_text.h"

namespace lexmill {
namespace {

TEST(ConsoleStep, MovesThePercentageByWholeRandomStepsPastAHundred) {
  const test::HeadlessWindow world;
  double random = 0;
  platform::OverrideClock({.tickCount = {}, .dayAndHour = {}, .random = [&] { return random; }});
  const auto shownAfter = [&](std::int32_t percent, PercentageStep step) {
    MovePercentage(percent, step);
    return test::Readable(world.window.lblState(2).Caption());
  };
  EXPECT_EQ(shownAfter(0, kGlossaryStep), "8%");
  EXPECT_EQ(shownAfter(95, kTextStep), "102%");
  random = 0.999;
  EXPECT_EQ(shownAfter(0, kGlossaryStep), "16%");
  EXPECT_EQ(shownAfter(0, kTextStep), "13%");
  EXPECT_EQ(world.session.doEventsCount, 4);
  platform::OverrideClock({});
}

TEST(ConsoleStep, ShowsTheTimeAloneForABatchThatCannotBeStarted) {
  const test::HeadlessWindow world;
  platform::OverrideClock({.tickCount = [] { return 7; }, .dayAndHour = {}, .random = {}});
  std::optional<cCaptureConsole> shell;
  int pieces = 0;
  RunConsoleStep(shell, world.folder.File("missing.bat"), [&](const auto&) { ++pieces; });
  EXPECT_EQ(test::Readable(world.window.lblState(2).Caption()), "时间: 0ms");
  EXPECT_EQ(pieces, 0);
  EXPECT_FALSE(shell.has_value());
  EXPECT_TRUE(world.session.messages.empty());
  platform::OverrideClock({});
}

}  // namespace
}  // namespace lexmill
