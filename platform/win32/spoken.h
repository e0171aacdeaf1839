// SPDX-License-Identifier: MIT
// platform/win32: the desktop by native controls; with platform/host/win32 all that knows the
// system. What screen readers say.
#pragma once

#include "platform/controls/spoken_names.h"
#include "platform/win32/system_headers.h"

namespace lexmill::platform::win32 {

/// Gives a control's window a name and a description for those who can't see it, where `spoken` has
/// one. Nothing on a system without that service.
void Annotate(HWND window, const SpokenName& spoken);

}  // namespace lexmill::platform::win32
