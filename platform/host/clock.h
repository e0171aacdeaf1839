// SPDX-License-Identifier: MIT
// platform/host: tick count, calendar and random numbers; tests can set each of them.
// Stands for: GetTickCount, the runtime's date and Rnd services.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace lexmill::platform {

/// Milliseconds since some fixed moment, as a 32-bit counter that wraps round.
[[nodiscard]] std::int32_t GetTickCount();

/// True if more than `milliseconds` have passed from tick count `since` to `now`; right across a
/// wrap.
[[nodiscard]] bool HasPassed(std::int32_t since, std::int32_t now, std::int32_t milliseconds);
/// `end` less `start` in milliseconds; right across a wrap.
[[nodiscard]] std::int32_t Elapsed(std::int32_t start, std::int32_t end);

/// Current day of the month and hour of the 24-hour clock, two digits each: the 7th at 04:05 is
/// 0704.
[[nodiscard]] std::u16string DayAndHour();

/// Seeds the random numbers anew from the clock.
void Randomize();
/// A random number in [0, 1).
[[nodiscard]] double Random();

/// What tests put in place of the host's clock and random numbers.
struct ClockOverride {
  std::function<std::int32_t()> tickCount;
  std::optional<std::u16string> dayAndHour;
  std::function<double()> random;
};
/// Replaces every service that `clock` fills; an empty object gives the host's back.
void OverrideClock(ClockOverride clock);

}  // namespace lexmill::platform
