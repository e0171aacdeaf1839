// SPDX-License-Identifier: MIT
// platform/win32: the desktop by native controls; with platform/host/win32 all that knows the
// system. The system's own declarations, for this folder's sources alone.
#pragma once

// clang-format off
#include <windows.h>
#include <windowsx.h>
#include <commctrl.h>
#include <objbase.h>
// clang-format on
