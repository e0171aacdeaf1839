// SPDX-License-Identifier: MIT
// platform/win32: the desktop by native controls; with platform/host/win32 all that knows the
// system. Messages on their way to the window.
#pragma once

#include <functional>

#include "platform/win32/system_headers.h"

namespace lexmill::platform::win32 {

/// Sets what sees each message before its window and may take it; nobody by default.
void SetKeyFilter(std::function<bool(const MSG& message)> filter);

/// Delivers messages until one ends the program. @return the program's exit code
[[nodiscard]] int RunMessageLoop();

/// Delivers the messages that have come in.
void DeliverPending();

/// Repaints what needs it and takes requests to close. What a user does with mouse and keys
/// meanwhile is dropped.
void RepaintWhileWaiting();

}  // namespace lexmill::platform::win32
