// SPDX-License-Identifier: MIT
// platform/host/posix: what is kept of a started program.
#pragma once

#include <sys/types.h>

#include "platform/host/system_process.h"

namespace lexmill::platform::system {

class Child {
 public:
  explicit Child(pid_t started) : process(started) {}

  pid_t process;
  bool isReaped = false;
};

}  // namespace lexmill::platform::system
