// SPDX-License-Identifier: MIT
#include "platform/host/host_system.h"

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

}  // namespace lexmill::platform
