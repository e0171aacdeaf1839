// SPDX-License-Identifier: MIT
// platform/host: lets calls to the host fail on purpose, so that tests can see what becomes of it.
#pragma once

#include <cerrno>

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
inline constexpr HostCall kLastHostCall = HostCall::Start;

/// Where the failures come from. Without a source, which is so in every program but a test, no call
/// fails and asking costs one comparison.
class HostFaults {
 public:
  /// Asked before each call. @return the `errno` that the call is to fail with; 0 to let it through
  using Source = int (*)(HostCall call);

  /// Asks `source` from now on; nobody if it is null.
  static void SetSource(Source source) { source_ = source; }

  /// True if the call that is about to be made has to fail; `errno` is set then.
  [[nodiscard]] static bool Strike(HostCall call) { return source_ != nullptr && Asked(call); }

 private:
  [[nodiscard]] static bool Asked(HostCall call) {
    const int error = source_(call);
    if (error != 0) {
      errno = error;
    }
    return error != 0;
  }

  static inline constinit Source source_ = nullptr;
};

}  // namespace lexmill::platform
