// SPDX-License-Identifier: MIT
// platform/win32: the desktop by native controls; with platform/host/win32 all that knows the
// system. The frame round a field.
#pragma once

#include "platform/win32/system_headers.h"

namespace lexmill::platform::win32 {

/// Gives an edit window without a border one of one pixel, drawn as the desktop's theme has it for
/// fields, so that it shows where the keyboard focus is. The system itself draws a border like that
/// twice as thick, which leaves no room for a line of text, or black.
void GiveThinFrame(HWND field);

}  // namespace lexmill::platform::win32
