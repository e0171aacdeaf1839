// SPDX-License-Identifier: MIT
#include "platform/host/host_system.h"

#include <csignal>
#include <cstdlib>
#include <tuple>

#include "platform/host/host_path.h"

namespace lexmill::platform {
namespace {

std::uint32_t& Version() {
  static std::uint32_t version = 0x0A280105;  // build 2600, version 5.1
  return version;
}

}  // namespace

std::uint32_t GetVersion() {
  return Version();
}

void SetVersion(std::uint32_t version) {
  Version() = version;
}

void SurviveFileSizeLimit() {
  std::ignore = std::signal(SIGXFSZ, SIG_IGN);
}

std::u16string EnvironmentVariable(std::u16string_view name) {
  const char* value = std::getenv(ToHostPath(name).c_str());
  return value == nullptr ? std::u16string() : FromHostPath(value);
}

void SetEnvironmentVariable(std::u16string_view name, std::u16string_view value) {
  std::ignore = setenv(ToHostPath(name).c_str(), ToHostPath(value).c_str(), 1);
}

}  // namespace lexmill::platform
