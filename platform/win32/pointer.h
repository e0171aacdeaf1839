// SPDX-License-Identifier: MIT
// platform/win32: the desktop by native controls; with platform/host/win32 all that knows the
// system. The mouse pointer.
#pragma once

namespace lexmill::platform::win32 {

/// True while the application shows that it is at work.
[[nodiscard]] bool IsWaitingPointer();

}  // namespace lexmill::platform::win32
