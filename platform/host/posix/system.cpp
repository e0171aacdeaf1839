// SPDX-License-Identifier: MIT
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <system_error>
#include <tuple>

#include "platform/host/host_path.h"
#include "platform/host/host_system.h"
#include "platform/host/system_facts.h"
#include "platform/text/text.h"

namespace lexmill::platform {

std::u16string EnvironmentVariable(std::u16string_view name) {
  const char* value = std::getenv(ToUtf8(name).c_str());
  return value == nullptr ? std::u16string() : FromUtf8(value);
}

void SetEnvironmentVariable(std::u16string_view name, std::u16string_view value) {
  std::ignore = setenv(ToUtf8(name).c_str(), ToUtf8(value).c_str(), 1);
}

void SurviveFileSizeLimit() {
  std::ignore = std::signal(SIGXFSZ, SIG_IGN);
}

namespace system {

HostPath ProgramFolder() {
  std::error_code failed;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", failed);
  return HostPath::FromNative(failed ? std::filesystem::current_path(failed)
                                     : program.parent_path());
}

std::uint32_t TickCount() {
  // The coarse clock is the same one as of the last timer interrupt: as fine as the counter that it
  // stands for, and cheap enough to be read for each record.
  std::timespec now{};
  clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
  const auto milliseconds = std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000;
  return static_cast<std::uint32_t>(milliseconds);
}

LocalTime CurrentLocalTime() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return {.day = local.tm_mday, .hour = local.tm_hour};
}

}  // namespace system
}  // namespace lexmill::platform
