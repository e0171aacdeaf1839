// SPDX-License-Identifier: MIT
// platform/sqlite: the database shell. The one exception type of the program and its known texts.
#pragma once

#include <string>
#include <string_view>

namespace lexmill::platform::sqlite {

inline constexpr std::string_view kMalformed = "database disk image is malformed";
inline constexpr std::string_view kNotADatabase = "file is encrypted or is not a database";
inline constexpr std::string_view kUnsupportedFormat = "unsupported file format";
inline constexpr std::string_view kLocked = "database is locked";
inline constexpr std::string_view kReadOnly = "attempt to write a readonly database";
inline constexpr std::string_view kCannotOpen = "unable to open database file";
inline constexpr std::string_view kInputOutput = "disk I/O error";
inline constexpr std::string_view kFull = "database or disk is full";
inline constexpr std::string_view kRowTooLong = "too much data for one table row";

/// What went wrong, as the shell prints it behind "SQL error: ".
class DatabaseError {
 public:
  explicit DatabaseError(std::string_view text) : text_(text) {}

  [[nodiscard]] const std::string& Text() const { return text_; }
  /// True if the host or the file is to blame, and not the statement: rows that were printed before
  /// may be a part of the whole.
  [[nodiscard]] bool IsOfTheFile() const;

 private:
  std::string text_;
};

/// What `errno` says of a failed write or read: kFull or kInputOutput.
[[nodiscard]] DatabaseError HostError();

}  // namespace lexmill::platform::sqlite
