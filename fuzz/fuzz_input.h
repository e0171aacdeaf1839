// SPDX-License-Identifier: MIT
// fuzz: properties that hold for any input.
// What the targets share: input cut into pieces, a check that ends the process, a scratch folder.
#pragma once

#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "platform/host/host_path.h"

/// Runs one input. @return 0
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace lexmill::fuzz {

/// Ends the process if a property does not hold.
inline void Require(bool holds, const char* property) {
  if (!holds) {
    std::fprintf(stderr, "does not hold: %s\n", property);
    std::abort();
  }
}

/// Takes pieces off an input. At its end all numbers are 0 and all texts empty.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size)
      : rest_(size == 0 ? "" : reinterpret_cast<const char*>(data), size) {}

  [[nodiscard]] unsigned TakeByte() {
    const auto bytes = TakeBytes(1);
    return bytes.empty() ? 0 : static_cast<unsigned char>(bytes.front());
  }
  [[nodiscard]] std::string_view TakeBytes(std::size_t count) {
    const std::string_view bytes = rest_.substr(0, count);
    rest_.remove_prefix(bytes.size());
    return bytes;
  }
  /// Bytes up to the next 0xFF, which is taken too.
  [[nodiscard]] std::string_view TakePiece() {
    const std::size_t length = std::min(rest_.find('\xFF'), rest_.size());
    const std::string_view bytes = rest_.substr(0, length);
    rest_.remove_prefix(std::min(length + 1, rest_.size()));
    return bytes;
  }
  [[nodiscard]] std::string_view Rest() const { return rest_; }

 private:
  std::string_view rest_;
};

/// A folder of this process, in memory where the host has that; gone at its end.
class ScratchFolder {
 public:
  ScratchFolder() {
    const std::filesystem::path memory = "/dev/shm";
    path_ = (std::filesystem::exists(memory) ? memory : std::filesystem::temp_directory_path()) /
            ("lexmill-fuzz-" + std::to_string(getpid()));
    std::filesystem::create_directories(path_);
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  [[nodiscard]] std::string HostPath(const char* name) const { return (path_ / name).string(); }
  [[nodiscard]] std::u16string Path(const char* name) const {
    return platform::HostPath::FromNative(path_ / name).Text();
  }
  void Write(const char* name, std::string_view bytes) const {
    std::ofstream(path_ / name, std::ios::binary | std::ios::trunc) << bytes;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace lexmill::fuzz
