// SPDX-License-Identifier: MIT
#include "platform/host/host_path.h"
#include "platform/host/host_system.h"
#include "platform/host/system_facts.h"
#include "platform/host/win32/path.h"
#include "platform/host/win32/wide.h"
#include "platform/host/win32/windows_api.h"

namespace lexmill::platform {

std::u16string EnvironmentVariable(std::u16string_view name) {
  const std::wstring wide = system::Wide(name);
  return system::TextOf(system::Filled([&wide](wchar_t* buffer, DWORD size) {
    return GetEnvironmentVariableW(wide.c_str(), buffer, size);
  }));
}

void SetEnvironmentVariable(std::u16string_view name, std::u16string_view value) {
  SetEnvironmentVariableW(system::Wide(name).c_str(), system::Wide(value).c_str());
}

void SurviveFileSizeLimit() {
  // No limit ends a process here, but a drive without a disk would ask for it by a dialog.
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
}

namespace system {

HostPath ProgramFolder() {
  const std::wstring program =
      Filled([](wchar_t* buffer, DWORD size) { return GetModuleFileNameW(nullptr, buffer, size); });
  return HostPath(ParentFolder(FromSystem(program).Text()));
}

std::uint32_t TickCount() {
  return ::GetTickCount();
}

LocalTime CurrentLocalTime() {
  SYSTEMTIME now = {};
  GetLocalTime(&now);
  return {.day = now.wDay, .hour = now.wHour};
}

}  // namespace system
}  // namespace lexmill::platform
