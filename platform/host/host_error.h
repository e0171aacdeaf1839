// SPDX-License-Identifier: MIT
// platform/host: what a call to the host gives back.
#pragma once

#include <utility>
#include <variant>

namespace lexmill::platform {

/// Why a call to the host failed, as far as anybody here acts on it.
enum class HostError {
  NotFound,     ///< no such name; the folder before it may be missing, too
  NoFolder,     ///< the way to the name leads through a file, or round in a circle
  BadName,      ///< no host file can have this name
  Denied,       ///< by permissions, or by a read-only disk
  IsFolder,     ///< a folder where a file was asked for
  InUse,        ///< somebody else has the file, or the part of it that was to be locked
  Exists,       ///< the name to create is taken
  OutOfMemory,  ///< the host's
  Full,         ///< the disk, a quota, or the limit for the size of a file
  Device,       ///< anything else
};

/// What a call gives that has nothing to give but its success.
struct Done {};

/// The value that a call to the host gave, or why there is none. Calls don't throw: what a failure
/// means to the platform is known one level above, which makes a Failure of it (host_failure.h).
template <class T>
class HostResult {
 public:
  // Implicit, so that a function returns either with a plain `return`.
  // NOLINTBEGIN(google-explicit-constructor)
  HostResult(T value) : outcome_(std::move(value)) {}
  HostResult(HostError error) : outcome_(error) {}
  // NOLINTEND(google-explicit-constructor)

  [[nodiscard]] explicit operator bool() const { return outcome_.index() == 0; }

  /// The value; only if there is one.
  [[nodiscard]] T& operator*() & { return *std::get_if<0>(&outcome_); }
  [[nodiscard]] const T& operator*() const& { return *std::get_if<0>(&outcome_); }
  [[nodiscard]] T&& operator*() && { return std::move(*std::get_if<0>(&outcome_)); }
  [[nodiscard]] T* operator->() { return std::get_if<0>(&outcome_); }
  [[nodiscard]] const T* operator->() const { return std::get_if<0>(&outcome_); }

  /// Why there is no value; only if there is none.
  [[nodiscard]] HostError Error() const { return *std::get_if<1>(&outcome_); }
  /// True if the call failed for this reason.
  [[nodiscard]] bool FailedBy(HostError reason) const { return !*this && Error() == reason; }

 private:
  std::variant<T, HostError> outcome_;
};

using HostOutcome = HostResult<Done>;

}  // namespace lexmill::platform
