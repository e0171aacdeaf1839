// SPDX-License-Identifier: MIT
#include "platform/host/termination.h"

#include <array>
#include <csignal>
#include <tuple>

namespace lexmill::platform {
namespace {

volatile std::sig_atomic_t received = 0;

}  // namespace

void HoldTerminationRequests() {
  for (const int number : std::array{SIGINT, SIGTERM, SIGHUP}) {
    std::ignore = std::signal(number, [](int request) {
      received = request;
      std::signal(request, SIG_DFL);
    });
  }
}

bool IsTerminationRequested() {
  return received != 0;
}

void EndAsRequested() {
  if (received != 0) {
    std::ignore = std::raise(received);
  }
}

void ShowOrderlyEnd() {}  // the host shows it

void SurviveBrokenPipes() {
  std::ignore = std::signal(SIGPIPE, SIG_IGN);
}

}  // namespace lexmill::platform
