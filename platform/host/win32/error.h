// SPDX-License-Identifier: MIT
// platform/host/win32: the system's last error as an error of ours.
#pragma once

#include <cstdint>

#include "platform/host/host_error.h"

namespace lexmill::platform::system {

/// What a call means that has left `error`.
[[nodiscard]] HostError HostErrorOf(std::uint32_t error);
/// What the call before means, by the thread's last error.
[[nodiscard]] HostError LastError();

/// The outcome of a call that returns 0 on failure.
[[nodiscard]] inline HostOutcome OutcomeOf(int succeeded) {
  return succeeded != 0 ? HostOutcome(Done()) : LastError();
}

}  // namespace lexmill::platform::system
