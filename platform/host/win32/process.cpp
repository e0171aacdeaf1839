// SPDX-License-Identifier: MIT
// A family is a job: whatever a process in it starts is in it, too.
#include "platform/host/system_process.h"
#include "platform/host/win32/child.h"
#include "platform/host/win32/error.h"
#include "platform/host/win32/handle.h"
#include "platform/host/win32/running_mark.h"

namespace lexmill::platform::system {
namespace {

constexpr DWORD kPipeSize = 256 * 1024;
/// The exit code of a program that was ended here: as other hosts say it of one that got no chance.
constexpr int kEndedCode = kExitByForce + 9;

/// Exit codes beyond any that a program chooses are the system's, for what it has ended.
int ExitCodeOf(DWORD code) {
  constexpr DWORD kSystemCodes = 0x40000000;
  return code < kSystemCodes ? static_cast<int>(code) : kExitByForce;
}

Arrival PeekInto(HANDLE handle) {
  DWORD count = 0;
  if (PeekNamedPipe(handle, nullptr, 0, nullptr, &count, nullptr) != 0) {
    return count > 0 ? Arrival::Something : Arrival::NothingYet;
  }
  return GetLastError() == ERROR_BROKEN_PIPE ? Arrival::Something : Arrival::Failure;
}

}  // namespace

HostResult<Pipe> CreatePipe() {
  HANDLE readEnd = nullptr;
  HANDLE writeEnd = nullptr;
  if (::CreatePipe(&readEnd, &writeEnd, nullptr, kPipeSize) == 0) {
    return LastError();
  }
  return Pipe{HostFile(FromHandle(readEnd)), HostFile(FromHandle(writeEnd))};
}

Arrival WaitForInput(HostHandle handle, int milliseconds) {
  // A pipe can't be waited for. Its writer is often just about to write, and the shortest sleep is
  // long, so the rest of the time slice is given away first.
  constexpr int kEagerTries = 50;
  const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(milliseconds);
  Arrival arrival = PeekInto(HandleOf(handle));
  for (int i = 0; arrival == Arrival::NothingYet && GetTickCount64() < end; ++i) {
    Sleep(i < kEagerTries ? 0 : 1);
    arrival = PeekInto(HandleOf(handle));
  }
  return arrival;
}

int WaitForEnd(Child& child) {
  DWORD code = 0;
  WaitForSingleObject(child.process.Get(), INFINITE);
  if (IsAbandoned(child.mark)) {
    return kEndedCode;
  }
  return GetExitCodeProcess(child.process.Get(), &code) != 0 ? ExitCodeOf(code) : kExitByForce;
}

void WaitForEnd(Child& child, int milliseconds) {
  WaitForSingleObject(child.process.Get(), static_cast<DWORD>(milliseconds));
}

bool IsGone(Child& child) {
  JOBOBJECT_BASIC_ACCOUNTING_INFORMATION job = {};
  return QueryInformationJobObject(child.job.Get(), JobObjectBasicAccountingInformation, &job,
                                   sizeof job, nullptr) != 0 &&
         job.ActiveProcesses == 0;
}

void End(Child& child) {
  TerminateJobObject(child.job.Get(), kEndedCode);
}

std::uint32_t ProcessNumber() {
  return GetCurrentProcessId();
}

bool IsProcessGone(std::uint32_t number) {
  if (number == 0) {
    return false;
  }
  const OwnedHandle process(OpenProcess(SYNCHRONIZE, FALSE, number));
  if (!process.IsOpen()) {
    return GetLastError() == ERROR_INVALID_PARAMETER;
  }
  return WaitForSingleObject(process.Get(), 0) == WAIT_OBJECT_0;
}

}  // namespace lexmill::platform::system
