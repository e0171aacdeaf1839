// SPDX-License-Identifier: MIT
#include "platform/files/name_reservation.h"

#include <fcntl.h>

#include <cerrno>
#include <utility>

#include "platform/host/host_path.h"

namespace lexmill::platform {
namespace {

constexpr std::string_view kLockMark = ".lexmill-name";

std::string LockPath(const std::string& path) {
  const std::size_t name = path.rfind('/') + 1;
  return path.substr(0, name) + "." + path.substr(name) + std::string(kLockMark);
}

/// Whoever removes a lock file holds its lock. So one that was waited for may have lost its name.
bool HasName(const HostFile& lock) {
  const auto status = lock.Status();
  return status && status->links > 0;
}

bool IsFree(const std::string& path) {
  return !StatusOf(path) && errno == ENOENT;
}

}  // namespace

std::optional<NameReservation> NameReservation::Take(std::u16string_view path) {
  const std::string hostPath = ToHostPath(path);
  std::string lockPath = LockPath(hostPath);
  HostFile lock = HostFile::Open(lockPath, O_RDWR | O_CREAT);
  if (!lock.IsOpen()) {
    return NameReservation(HostFile(), "");
  }
  if (!lock.TryLock() || !HasName(lock)) {
    return std::nullopt;
  }
  NameReservation taken(std::move(lock), std::move(lockPath));
  return IsFree(hostPath) ? std::optional(std::move(taken)) : std::nullopt;
}

NameReservation::NameReservation(HostFile lock, std::string lockPath)
    : lock_(std::move(lock)), lockPath_(std::move(lockPath)) {}

NameReservation::NameReservation(NameReservation&& other) noexcept
    : lock_(std::move(other.lock_)), lockPath_(std::exchange(other.lockPath_, {})) {}

NameReservation& NameReservation::operator=(NameReservation&& other) noexcept {
  if (this != &other) {
    Release();
    lock_ = std::move(other.lock_);
    lockPath_ = std::exchange(other.lockPath_, {});
  }
  return *this;
}

NameReservation::~NameReservation() {
  Release();
}

void NameReservation::Release() {
  if (!lockPath_.empty()) {
    RemoveFile(std::exchange(lockPath_, {}));
  }
  lock_.Close();
}

void RemoveStaleReservations(std::u16string_view folder) {
  const std::string hostFolder = ToHostPath(folder);
  for (const auto& name : NamesIn(hostFolder)) {
    if (name.starts_with('.') && name.ends_with(kLockMark)) {
      const std::string path = hostFolder + "/" + name;
      HostFile lock = HostFile::Open(path, O_RDWR);
      if (lock.IsOpen() && lock.TryLock() && HasName(lock)) {
        RemoveFile(path);
      }
    }
  }
}

}  // namespace lexmill::platform
