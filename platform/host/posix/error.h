// SPDX-License-Identifier: MIT
// platform/host/posix: the system's `errno` as an error of ours.
#pragma once

#include "platform/host/host_error.h"

namespace lexmill::platform::system {

/// What a call means that has left `error`.
[[nodiscard]] HostError HostErrorOf(int error);
/// What the call before means, by `errno`.
[[nodiscard]] HostError LastError();

/// The outcome of a call that returns 0 on success.
[[nodiscard]] inline HostOutcome OutcomeOf(int result) {
  return result == 0 ? HostOutcome(Done()) : LastError();
}

}  // namespace lexmill::platform::system
