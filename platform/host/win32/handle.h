// SPDX-License-Identifier: MIT
// platform/host/win32: a handle of ours is one of the system's.
#pragma once

#include <bit>
#include <utility>

#include "platform/host/host_file.h"
#include "platform/host/win32/windows_api.h"

namespace lexmill::platform::system {

[[nodiscard]] inline HANDLE HandleOf(HostHandle handle) {
  return std::bit_cast<HANDLE>(handle);
}
/// Some calls give nothing where others give an invalid handle; both are None.
[[nodiscard]] inline HostHandle FromHandle(HANDLE handle) {
  return handle == nullptr ? HostHandle::None : std::bit_cast<HostHandle>(handle);
}

/// A handle of something that is no file, closed by the destructor.
class OwnedHandle {
 public:
  OwnedHandle() = default;
  explicit OwnedHandle(HANDLE handle) : handle_(handle) {}
  OwnedHandle(OwnedHandle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  OwnedHandle& operator=(OwnedHandle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  OwnedHandle(const OwnedHandle&) = delete;
  OwnedHandle& operator=(const OwnedHandle&) = delete;
  ~OwnedHandle() {
    if (IsOpen()) {
      CloseHandle(handle_);
    }
  }

  [[nodiscard]] bool IsOpen() const {
    return handle_ != nullptr && FromHandle(handle_) != HostHandle::None;
  }
  [[nodiscard]] HANDLE Get() const { return handle_; }

 private:
  HANDLE handle_ = nullptr;
};

}  // namespace lexmill::platform::system
