// SPDX-License-Identifier: MIT
#include "platform/files/name_reservation.h"

#include <utility>

namespace lexmill::platform {
namespace {

constexpr std::u16string_view kLockMark = u".lexmill-name";

std::u16string LockPath(std::u16string_view path) {
  std::u16string lockPath(FolderPart(path));
  return lockPath.append(u".").append(FileName(path)).append(kLockMark);
}

/// Locks the file for this object alone; true as well where the host has no locks.
bool TryLock(HostFile& lock) {
  return !lock.Lock(LockKind::Exclusive).FailedBy(HostError::InUse);
}

/// Whoever removes a lock file holds its lock. So one that was waited for may have lost its name.
bool HasName(const HostFile& lock) {
  const auto status = lock.Status();
  return status && status->hasName;
}

bool IsFree(std::u16string_view path) {
  return StatusOf(HostPath(path)).FailedBy(HostError::NotFound);
}

}  // namespace

std::optional<NameReservation> NameReservation::Take(std::u16string_view path) {
  std::u16string lockPath = LockPath(path);
  auto lock = HostFile::Open(HostPath(lockPath), OpenMode::ReadWriteCreate);
  if (lock.FailedBy(HostError::InUse)) {
    return std::nullopt;
  }
  if (!lock) {
    return NameReservation(HostFile(), u"");
  }
  // The lock first, the look at the path after it: whoever creates the file holds the lock then.
  if (!TryLock(*lock) || !HasName(*lock)) {
    return std::nullopt;
  }
  NameReservation taken(*std::move(lock), std::move(lockPath));
  return IsFree(path) ? std::optional(std::move(taken)) : std::nullopt;
}

NameReservation::NameReservation(HostFile lock, std::u16string lockPath)
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

// Removed while still locked: unlocked first, it could be somebody else's when it is removed.
// A host may keep the name until the file is closed; whoever asks for it meanwhile finds it in use.
void NameReservation::Release() {
  if (!lockPath_.empty()) {
    RemoveFile(HostPath(std::exchange(lockPath_, {})));
  }
  lock_.Close();
}

void RemoveStaleReservations(std::u16string_view folder) {
  for (const auto& name : NamesIn(HostPath(folder))) {
    if (name.starts_with(u'.') && name.ends_with(kLockMark)) {
      const HostPath path(WithSeparator(folder) + name);
      auto lock = HostFile::Open(path, OpenMode::ReadWrite);
      if (lock && TryLock(*lock) && HasName(*lock)) {
        RemoveFile(path);
      }
    }
  }
}

}  // namespace lexmill::platform
