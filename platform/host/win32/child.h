// SPDX-License-Identifier: MIT
// platform/host/win32: what is kept of a started program.
#pragma once

#include <utility>

#include "platform/host/system_process.h"
#include "platform/host/win32/handle.h"

namespace lexmill::platform::system {

class Child {
 public:
  Child(OwnedHandle started, OwnedHandle itsMark, OwnedHandle itsJob)
      : process(std::move(started)), mark(std::move(itsMark)), job(std::move(itsJob)) {}

  OwnedHandle process;
  OwnedHandle mark;  ///< as RunningMark gives it
  OwnedHandle job;   ///< the process and all that it has started
};

}  // namespace lexmill::platform::system
