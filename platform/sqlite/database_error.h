// SPDX-License-Identifier: MIT
// platform/sqlite: the database shell. The one exception type of the program and its known texts.
#pragma once

#include <string>
#include <string_view>

#include "platform/host/host_error.h"

namespace lexmill::platform::sqlite {

/// What went wrong, as far as somebody decides by it.
enum class ErrorKind {
  Statement,  ///< any failure that only its text describes
  Malformed,
  CannotOpen,
  InputOutput,
  Full,
  RowTooLong,
};

/// A failure of known text.
struct KnownError {
  ErrorKind kind;
  std::string_view text;
};

inline constexpr KnownError kMalformed = {ErrorKind::Malformed, "database disk image is malformed"};
inline constexpr KnownError kCannotOpen = {ErrorKind::CannotOpen, "unable to open database file"};
inline constexpr KnownError kInputOutput = {ErrorKind::InputOutput, "disk I/O error"};
inline constexpr KnownError kFull = {ErrorKind::Full, "database or disk is full"};
inline constexpr KnownError kRowTooLong = {ErrorKind::RowTooLong,
                                           "too much data for one table row"};
inline constexpr std::string_view kNotADatabase = "file is encrypted or is not a database";
inline constexpr std::string_view kUnsupportedFormat = "unsupported file format";
inline constexpr std::string_view kLocked = "database is locked";
inline constexpr std::string_view kReadOnly = "attempt to write a readonly database";

/// What went wrong, as the shell prints it after "SQL error: ".
class DatabaseError {
 public:
  explicit DatabaseError(std::string_view text) : text_(text) {}
  explicit DatabaseError(const KnownError& known) : kind_(known.kind), text_(known.text) {}

  [[nodiscard]] ErrorKind Kind() const { return kind_; }
  [[nodiscard]] const std::string& Text() const { return text_; }
  /// True if the host or the file is to blame, and not the statement: rows that were printed before
  /// may be a part of the whole.
  [[nodiscard]] bool IsOfTheFile() const {
    return kind_ != ErrorKind::Statement && kind_ != ErrorKind::RowTooLong;
  }

 private:
  ErrorKind kind_ = ErrorKind::Statement;
  std::string text_;
};

/// What the error of a failed write or read means: kFull or kInputOutput.
[[nodiscard]] DatabaseError TransferError(HostError error);
/// @throws TransferError if a call to the host has failed
void ThrowUnless(const HostOutcome& outcome);

}  // namespace lexmill::platform::sqlite
