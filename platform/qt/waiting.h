// SPDX-License-Identifier: MIT
// platform/qt: the desktop on the screen; the only folder that knows the toolkit.
// The window while a child process works.
#pragma once

namespace lexmill::platform::qt {

/// Repaints what needs it and takes requests to close. What a user does with mouse and keys
/// meanwhile is dropped.
void RepaintWhileWaiting();

}  // namespace lexmill::platform::qt
