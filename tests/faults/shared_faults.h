// SPDX-License-Identifier: MIT
// tests/faults: what becomes of a run when calls to the host fail.
// One count of calls for a test and all processes that it starts.
#pragma once

#include <atomic>
#include <filesystem>

#include "platform/host/host_faults.h"

namespace lexmill::test {

/// Which call fails. Lies in memory that all processes of a run share.
struct SharedFaults {
  platform::HostCall kind;
  platform::HostError error;
  int n;  ///< the n-th call of that kind fails, counted from 1; 0: none
  std::atomic<int> calls;
};

/// Lets calls fail in this process and in the programs under build/tests/failing that it starts,
/// for as long as this object lives. One at a time.
class FaultInjection {
 public:
  explicit FaultInjection(const std::filesystem::path& file);
  ~FaultInjection();
  FaultInjection(const FaultInjection&) = delete;
  FaultInjection& operator=(const FaultInjection&) = delete;

  /// Counts calls of `kind` from now on and lets the `n`-th fail with `error`.
  void Arm(platform::HostCall kind, platform::HostError error, int n);
  /// Lets no further call fail. @return true if the call that was to fail has come
  bool Disarm();
};

/// Takes part in the count of the process that started this one, if there is one.
void JoinFaultInjection();

}  // namespace lexmill::test
