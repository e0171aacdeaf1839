// SPDX-License-Identifier: MIT
#include "platform/qt/termination_signals.h"

#include <signal.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <tuple>
#include <utility>

#include "platform/host/posix/descriptor.h"

namespace lexmill::platform::qt {
namespace {

constexpr std::array kSignals = {SIGTERM, SIGINT, SIGHUP};

// What the handler writes to: it may do no more than that.
volatile sig_atomic_t writeEnd = -1;

void WakeLoop(int /*signal*/) {
  const int error = errno;
  const char byte = 0;
  std::ignore = write(writeEnd, &byte, 1);
  errno = error;
}

void SetHandler(void (*handler)(int)) {
  struct sigaction action = {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  for (const int signal : kSignals) {
    struct sigaction present = {};
    sigaction(signal, nullptr, &present);
    if (present.sa_handler != SIG_IGN) {
      sigaction(signal, &action, nullptr);
    }
  }
}

}  // namespace

TerminationSignals::TerminationSignals(std::function<void()> asked)
    : pipe_(CreatePipe().value_or(Pipe{})),
      arrived_(system::DescriptorOf(pipe_.readEnd.Handle()), QSocketNotifier::Read) {
  QObject::connect(&arrived_, &QSocketNotifier::activated, &arrived_,
                   [this, asked = std::move(asked)] {
                     std::array<char, 1> byte;
                     std::ignore = pipe_.readEnd.Read(byte);
                     asked();
                   });
  writeEnd = system::DescriptorOf(pipe_.writeEnd.Handle());
  if (pipe_.writeEnd.IsOpen()) {
    SetHandler(WakeLoop);
  }
}

TerminationSignals::~TerminationSignals() {
  SetHandler(SIG_DFL);
  writeEnd = -1;
}

}  // namespace lexmill::platform::qt
