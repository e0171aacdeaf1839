// SPDX-License-Identifier: MIT
#include "platform/host/clock.h"

#include <chrono>
#include <random>
#include <utility>

#include "platform/host/system_facts.h"

namespace lexmill::platform {
namespace {

ClockOverride& Override() {
  static ClockOverride clock;
  return clock;
}

// Two programs that start at the same time have to draw different names for their files.
std::mt19937_64& Generator() {
  static std::mt19937_64 generator{std::random_device{}()};
  return generator;
}

}  // namespace

std::int32_t GetTickCount() {
  if (const auto& tickCount = Override().tickCount) {
    return tickCount();
  }
  return static_cast<std::int32_t>(system::TickCount());
}

bool HasPassed(std::int32_t since, std::int32_t now, std::int32_t milliseconds) {
  return Elapsed(since, now) > milliseconds;
}

std::int32_t Elapsed(std::int32_t start, std::int32_t end) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(end) -
                                   static_cast<std::uint32_t>(start));
}

std::u16string DayAndHour() {
  if (const auto& dayAndHour = Override().dayAndHour) {
    return *dayAndHour;
  }
  const system::LocalTime now = system::CurrentLocalTime();
  std::u16string result;
  for (const int field : {now.day, now.hour}) {
    result += static_cast<char16_t>(u'0' + field / 10);
    result += static_cast<char16_t>(u'0' + field % 10);
  }
  return result;
}

void Randomize() {
  const auto now = std::chrono::system_clock::now().time_since_epoch().count();
  Generator().seed(static_cast<std::mt19937_64::result_type>(now));
}

double Random() {
  if (const auto& random = Override().random) {
    return random();
  }
  // The upper 53 bits fill a double exactly, so that 1 itself can't come out by rounding.
  constexpr double kStep = 1.0 / (std::uint64_t{1} << 53);
  return static_cast<double>(Generator()() >> 11) * kStep;
}

void OverrideClock(ClockOverride clock) {
  Override() = std::move(clock);
}

}  // namespace lexmill::platform
