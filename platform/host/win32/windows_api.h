// SPDX-License-Identifier: MIT
// platform/host/win32: the system's own header, without the macros that hide names of ours. Only
// sources of the twin and headers that they alone include may have it.
#pragma once

// clang-format off
#include <windows.h>
#include <shellapi.h>
#include <winioctl.h>
// clang-format on

#undef CreateProcess
#undef DeleteFile
#undef SetEnvironmentVariable
