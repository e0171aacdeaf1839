// SPDX-License-Identifier: MIT
// platform/win32: the desktop by native controls; with platform/host/win32 all that knows the
// system. What dialogs lie over.
#pragma once

#include "platform/win32/system_headers.h"

namespace lexmill::platform::win32 {

/// The kind of window that shows a form.
inline constexpr const wchar_t* kFormKind = L"LexmillForm";

/// The window that a dialog blocks until it is answered: the form, or the dialog that is open over
/// it, whether the user is at work in this program or in another; null while no form is shown.
[[nodiscard]] HWND DialogOwner();

/// Gives up all dialogs that wait for an answer, the last one opened first.
void CloseDialogs();

}  // namespace lexmill::platform::win32
