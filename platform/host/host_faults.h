// SPDX-License-Identifier: MIT
// platform/host: lets calls to the host fail on purpose, so that tests can see what becomes of it.
#pragma once

#include <optional>

#include "platform/host/host_error.h"

namespace lexmill::platform {

/// What a call asks of the host.
enum class HostCall {
  Open,
  Read,
  Write,
  Truncate,
  Synchronise,
  Close,
  Rename,
  Remove,
  Start,  ///< of a child process, and the pipe to it
};

/// Where the failures come from. Asked by the functions of this folder before they call the twin of
/// the system, so that each system's calls fail alike. Without a source, which is so in every
/// program but a test, no call fails and asking costs one comparison.
class HostFaults {
 public:
  /// Asked before each call. @return what the call is to fail with; none to let it through
  using Source = std::optional<HostError> (*)(HostCall call);

  /// Asks `source` from now on; nobody if it is null.
  static void SetSource(Source source) { source_ = source; }

  /// What the call that is about to be made has to fail with; none as a rule.
  [[nodiscard]] static std::optional<HostError> Strike(HostCall call) {
    return source_ == nullptr ? std::nullopt : source_(call);
  }

 private:
  static inline constinit Source source_ = nullptr;
};

}  // namespace lexmill::platform
