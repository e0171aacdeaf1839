// SPDX-License-Identifier: MIT
#include "platform/host/win32/running_mark.h"

#include <string>

#include "platform/host/termination.h"

namespace lexmill::platform {
namespace {

/// Holds this process's mark. The thread that has made it has to let go of it.
class HeldMark {
 public:
  HeldMark() : mark_(system::RunningMark(GetCurrentProcessId())) {
    WaitForSingleObject(mark_.Get(), 0);
  }
  ~HeldMark() { ReleaseMutex(mark_.Get()); }
  HeldMark(const HeldMark&) = delete;
  HeldMark& operator=(const HeldMark&) = delete;

 private:
  system::OwnedHandle mark_;
};

}  // namespace

void ShowOrderlyEnd() {
  static const HeldMark mark;
}

namespace system {

OwnedHandle RunningMark(std::uint32_t number) {
  const std::wstring name = L"Local\\lexmill-running-" + std::to_wstring(number);
  return OwnedHandle(CreateMutexW(nullptr, FALSE, name.c_str()));
}

bool IsAbandoned(const OwnedHandle& mark) {
  return mark.IsOpen() && WaitForSingleObject(mark.Get(), 0) == WAIT_ABANDONED;
}

}  // namespace system
}  // namespace lexmill::platform
