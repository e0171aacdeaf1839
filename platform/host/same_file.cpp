// SPDX-License-Identifier: MIT
#include "platform/host/same_file.h"

#include <filesystem>
#include <system_error>

#include "platform/host/host_path.h"

namespace lexmill::platform {

bool IsSameFile(std::u16string_view path, std::u16string_view other) {
  std::error_code missing;
  return std::filesystem::equivalent(HostPath(path).Native(), HostPath(other).Native(), missing);
}

}  // namespace lexmill::platform
