// SPDX-License-Identifier: MIT
// Whole runs while the clock does what clocks shouldn't.
#include <limits>

#include "platform/host/clock.h"
#include "tests/end_to_end/whole_run.h"
#include "tests/support/readable_text.h"

namespace lexmill::test {
namespace {

class ClockRun : public WholeRun {
 protected:
  ~ClockRun() override { platform::OverrideClock({}); }

  /// The result of a run over `entries` entries, with a clock that moves by `step` milliseconds
  /// each time that it is asked, from `start` on.
  std::string Run(int entries, std::int32_t start, std::int32_t step) {
    // Unsigned, as the counter wraps.
    auto now = static_cast<std::uint32_t>(start);
    platform::ClockOverride clock;
    clock.tickCount = [now, step]() mutable {
      now += static_cast<std::uint32_t>(step);
      return static_cast<std::int32_t>(now);
    };
    platform::OverrideClock(clock);
    std::string toDo, refer;
    for (int i = 0; i < entries; ++i) {
      toDo += "E" + std::to_string(i) + "\tE" + std::to_string(i) + "\n";
      refer += "E" + std::to_string(i) + "\tF" + std::to_string(i) + "\n";
    }
    expected_ = refer;
    return ResultOf(toDo, refer);
  }

  std::string expected_;
};

TEST_F(ClockRun, IsCompleteWhenTheCounterWraps) {
  constexpr auto kLast = std::numeric_limits<std::int32_t>::max();
  constexpr std::int32_t kStep = 600;
  // The counter wraps within the first stage.
  EXPECT_EQ(Run(50, kLast - 10 * kStep, kStep), expected_);
  for (std::int16_t row = 0; row < 4; ++row) {
    const std::string shown = Readable(world_.window.lblState(row).Caption());
    EXPECT_TRUE(shown.starts_with("时间: ") && shown.find('-') == std::string::npos) << shown;
  }
}

TEST_F(ClockRun, IsCompleteWhenTheClockGoesBackOrStops) {
  EXPECT_EQ(Run(50, 1'000'000, -1000), expected_);
  EXPECT_EQ(Run(50, 0, 0), expected_);
}

}  // namespace
}  // namespace lexmill::test
