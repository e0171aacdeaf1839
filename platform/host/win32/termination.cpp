// SPDX-License-Identifier: MIT
// The system calls the handler on a thread of its own and, for all but the keys, ends the process
// as soon as it returns, or some seconds later.
#include "platform/host/termination.h"

#include <atomic>

#include "platform/host/win32/windows_api.h"

namespace lexmill::platform {
namespace {

std::atomic<bool> isRequested = false;

BOOL WINAPI Hold(DWORD request) {
  if (isRequested.exchange(true)) {
    return FALSE;
  }
  if (request != CTRL_C_EVENT && request != CTRL_BREAK_EVENT) {
    Sleep(INFINITE);
  }
  return TRUE;
}

}  // namespace

void HoldTerminationRequests() {
  SetConsoleCtrlHandler(Hold, TRUE);
}

bool IsTerminationRequested() {
  return isRequested;
}

void EndAsRequested() {
  if (isRequested) {
    ExitProcess(static_cast<UINT>(STATUS_CONTROL_C_EXIT));
  }
}

void SurviveBrokenPipes() {}  // no write ends a process here

}  // namespace lexmill::platform
