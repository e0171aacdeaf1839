// SPDX-License-Identifier: MIT
// run/shared: what every room may read of a run.
// The times of a stage and the progress that it shows in its row of the window.
#pragma once

#include <cstdint>

#include "platform/controls/controls.h"

namespace lexmill {

/// The clock of one stage. A stage asks IsDue for each record and shows its progress if it is, so
/// that the window is touched at most every 500 milliseconds.
class ProgressTick {
 public:
  /// The label whose caption shows the progress; it has to outlive the stage.
  void StateLabel(platform::Label& label) { label_ = &label; }

  /// Takes the start of the stage, then the time of the last refresh.
  void Start();
  /// Milliseconds since Start.
  [[nodiscard]] std::int32_t Elapsed() const;

  /// True if more than 500 milliseconds have passed since the last refresh, which is then now.
  [[nodiscard]] bool IsDue();
  /// Shows "37%" and lets the window's pending events run.
  void ShowPercent(std::int32_t percent);
  /// If a refresh is due, appends a star to the caption, or starts again with one star if the
  /// caption has more than five characters; then lets the window's pending events run.
  void ShowStarIfDue();

 private:
  platform::Label* label_ = nullptr;
  std::int32_t start_ = 0;
  std::int32_t lastRefresh_ = 0;
};

}  // namespace lexmill
