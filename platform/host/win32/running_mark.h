// SPDX-License-Identifier: MIT
// platform/host/win32: tells a program that was ended from one that has ended. Its exit code
// doesn't: whoever ends a process here chooses that, and often it is one that the program has, too.
#pragma once

#include <cstdint>

#include "platform/host/win32/handle.h"

namespace lexmill::platform::system {

/// The mark of the process `number`, a mutex that it holds from ShowOrderlyEnd on until it ends in
/// order. The system reports one as abandoned that its holder had no time to let go of.
[[nodiscard]] OwnedHandle RunningMark(std::uint32_t number);
/// True if the holder of `mark`, which is no more, was ended before it had let go of it.
[[nodiscard]] bool IsAbandoned(const OwnedHandle& mark);

}  // namespace lexmill::platform::system
