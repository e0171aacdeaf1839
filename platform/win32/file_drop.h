// SPDX-License-Identifier: MIT
// platform/win32: the desktop by native controls; with platform/host/win32 all that knows the
// system. Files that a user drops on a field or pastes there.
#pragma once

#include "platform/controls/controls.h"
#include "platform/win32/system_headers.h"

// clang-format off
#include <shellapi.h>
// clang-format on

namespace lexmill::platform::win32 {

/// Lets files be dropped on a window, which gets WM_DROPFILES for them.
void AcceptFiles(HWND window);

/// Hands `combo` the files of a drop, as it takes them, and gives the drop back to the system.
void DropFiles(ComboBox& combo, HDROP drop);

/// Types the paths of the files that the user has copied in a folder's window, as `combo` takes
/// them. @return false if nothing but text, or nothing, is to be pasted
bool PasteFiles(const ComboBox& combo, HWND typingPart);

}  // namespace lexmill::platform::win32
