// SPDX-License-Identifier: MIT
// platform/files: names of files that are to come, kept from other running programs.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/host/host_file.h"

namespace lexmill::platform {

/// Keeps a path for this object's life from everybody else who asks here, in this process or
/// another. Nothing is created under the path itself; a locked file `.NAME.lexmill-name` beside it
/// holds the place. A program that is killed leaves that file but not its lock, so that the name is
/// free again.
class NameReservation {
 public:
  /// @return none if somebody keeps the path or a file lies under it. In a folder where no file can
  ///   be created, an object that keeps nothing.
  [[nodiscard]] static std::optional<NameReservation> Take(std::u16string_view path);

  NameReservation(NameReservation&& other) noexcept;
  NameReservation& operator=(NameReservation&& other) noexcept;
  NameReservation(const NameReservation&) = delete;
  NameReservation& operator=(const NameReservation&) = delete;
  ~NameReservation();

 private:
  NameReservation(HostFile lock, std::u16string lockPath);
  void Release();

  HostFile lock_;
  std::u16string lockPath_;  ///< empty if there is nothing to remove
};

/// Removes the lock files in `folder` that killed programs have left.
void RemoveStaleReservations(std::u16string_view folder);

}  // namespace lexmill::platform
