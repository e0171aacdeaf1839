// SPDX-License-Identifier: MIT
// platform/qt: the desktop on the screen; the only folder that knows the toolkit.
// Signals that ask the program to end.
#pragma once

#include <functional>

#include <QSocketNotifier>

#include "platform/host/process.h"

namespace lexmill::platform::qt {

/// While it lives, SIGTERM, SIGINT and SIGHUP call a function from the message loop instead of
/// ending the process; one that was ignored stays ignored. One object at a time.
class TerminationSignals {
 public:
  /// @param asked  called once for each signal
  explicit TerminationSignals(std::function<void()> asked);
  ~TerminationSignals();
  TerminationSignals(const TerminationSignals&) = delete;
  TerminationSignals& operator=(const TerminationSignals&) = delete;

 private:
  Pipe pipe_;
  QSocketNotifier arrived_;
};

}  // namespace lexmill::platform::qt
