// SPDX-License-Identifier: MIT
// run: turns one press of the start command into a finished run.
// What a run says of itself in one line, and in one number.
#pragma once

#include <string>

#include "run/shared/run_counts.h"

namespace lexmill {

/// How many of the untranslated entries were filled and how many have several translations, such as
/// "译出 198 / 2,295 条；18 条有多种译法"; empty for counts that aren't complete.
[[nodiscard]] std::u16string SummaryOf(const RunCounts& counts);

/// The share of the untranslated entries that was filled, in percent; 100 if there are none.
[[nodiscard]] double FilledPercent(const RunCounts& counts);

}  // namespace lexmill
