// SPDX-License-Identifier: MIT
// platform/host: what the folder of each system defines for the program's folder and the clock.
// Called by this folder's sources alone.
#pragma once

#include <cstdint>

#include "platform/host/host_path.h"

namespace lexmill::platform::system {

[[nodiscard]] HostPath ProgramFolder();

/// Milliseconds since some fixed moment, wrapping round; cheap to ask.
[[nodiscard]] std::uint32_t TickCount();

struct LocalTime {
  int day;   ///< of the month, from 1
  int hour;  ///< of 24
};
[[nodiscard]] LocalTime CurrentLocalTime();

}  // namespace lexmill::platform::system
