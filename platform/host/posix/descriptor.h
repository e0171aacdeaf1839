// SPDX-License-Identifier: MIT
// platform/host/posix: a handle is a file descriptor.
#pragma once

#include "platform/host/host_file.h"

namespace lexmill::platform::system {

[[nodiscard]] constexpr int DescriptorOf(HostHandle handle) {
  return static_cast<int>(handle);
}
[[nodiscard]] constexpr HostHandle HandleOf(int descriptor) {
  return static_cast<HostHandle>(descriptor);
}

}  // namespace lexmill::platform::system
