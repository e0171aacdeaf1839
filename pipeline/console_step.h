// SPDX-License-Identifier: MIT
// pipeline: performs one run, one class for each pair of formats.
// The console step: one batch script run to its end, with its time and a percentage that moves.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "foundation/cCaptureConsole.h"

namespace lexmill {

/// How far the percentage moves with each piece of output: the whole part of r * range + least, for
/// a random r in [0, 1).
struct PercentageStep {
  int range;
  int least;
};
inline constexpr PercentageStep kGlossaryStep{9, 8};
inline constexpr PercentageStep kTextStep{7, 7};

/// Moves `lPercent` by a random step and shows it in row 2. The number measures nothing but that
/// the batch is alive; it may pass 100.
void MovePercentage(std::int32_t& lPercent, PercentageStep step);

/// Runs the batch script `batFile` in the work folder and shows its time in row 2; nothing in
/// a run that has been abandoned.
/// @param oShellC          holds the console capture for the time of the step
/// @param outputAvailable  called for each piece of output
/// Reports no failure: a batch that can't be started is one that prints nothing.
void RunConsoleStep(std::optional<cCaptureConsole>& oShellC, const std::u16string& batFile,
                    const std::function<void(std::u16string)>& outputAvailable);

}  // namespace lexmill
