// SPDX-License-Identifier: MIT
#include "platform/host/clock.h"

#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace lexmill::platform {
namespace {

TEST(Clock, MeasuresAcrossTheWrapOfTheCounter) {
  constexpr auto kLast = std::numeric_limits<std::int32_t>::max();
  constexpr auto kFirst = std::numeric_limits<std::int32_t>::min();
  EXPECT_EQ(Elapsed(kLast - 99, kFirst + 400), 500);
  EXPECT_FALSE(HasPassed(kLast - 99, kFirst + 400, 500));
  EXPECT_TRUE(HasPassed(kLast - 99, kFirst + 401, 500));
  EXPECT_FALSE(HasPassed(1000, 999, 500));
}

TEST(Clock, GivesWhatATestSetsAndThenTheHostsAgain) {
  OverrideClock(
      {.tickCount = [] { return 42; }, .dayAndHour = u"0704", .random = [] { return 0.25; }});
  EXPECT_EQ(GetTickCount(), 42);
  EXPECT_EQ(DayAndHour(), u"0704");
  EXPECT_EQ(Random(), 0.25);
  OverrideClock({});
  EXPECT_NE(Random(), 0.25);
}

TEST(Clock, DayAndHourAreTwoDigitsEach) {
  const std::u16string text = DayAndHour();
  ASSERT_EQ(text.size(), 4U);
  const int value = std::stoi(std::string(text.begin(), text.end()));
  EXPECT_GE(value / 100, 1);
  EXPECT_LE(value / 100, 31);
  EXPECT_LE(value % 100, 23);
}

TEST(Clock, RandomNumbersAreBelowOneAndChangeWithTheSeed) {
  Randomize();
  const double first = Random();
  Randomize();
  EXPECT_NE(Random(), first);
  for (int i = 0; i < 1000; ++i) {
    const double number = Random();
    EXPECT_GE(number, 0.0);
    EXPECT_LT(number, 1.0);
  }
}

}  // namespace
}  // namespace lexmill::platform
