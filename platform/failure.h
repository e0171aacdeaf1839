// SPDX-License-Identifier: MIT
// platform: the one failure type of the system, and the platform's known numbers and texts.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace lexmill::platform {

/// Numbers of the platform's failures, as its users know them.
enum class FailureNumber : std::int32_t {
  InvalidCall = 5,
  Overflow = 6,
  OutOfMemory = 7,
  TypeMismatch = 13,
  BadFileName = 52,
  FileNotFound = 53,
  BadFileMode = 54,
  FileAlreadyOpen = 55,
  DeviceError = 57,
  FileAlreadyExists = 58,
  DiskFull = 61,
  InputPastEnd = 62,
  PermissionDenied = 70,
  PathFileAccess = 75,
  PathNotFound = 76,
  ObjectNotSet = 91,
  InvalidPropertyValue = 380,
  ExpressionSyntax = 5017,
  UnexpectedQuantifier = 5018,
  ExpectedBracket = 5019,
  ExpectedParenthesis = 5020,
  InvalidRange = 5021,
};

/// Who raises a failure; a few descriptions differ between the two.
enum class FailureOrigin {
  ScriptLibrary,  ///< the file system object, text streams, regular expressions
  Runtime,        ///< conversions, properties, binary files
};

/// A failure: a number and a description on their way to the nearest entry point.
/// Thrown by value; not derived from std::exception, since no library may catch it on the way.
class Failure {
 public:
  /// A failure of the platform, with its Chinese description.
  /// Source: published message texts of the script libraries and the runtime.
  /// @param subject  what it is about, such as the path of a file; empty if nobody knows
  Failure(FailureNumber number, FailureOrigin origin, std::u16string_view subject = {});

  /// A failure of the system's own.
  Failure(std::int32_t number, std::u16string_view description, std::u16string_view subject = {});

  [[nodiscard]] std::int32_t Number() const { return number_; }
  [[nodiscard]] const std::u16string& Description() const { return description_; }
  [[nodiscard]] const std::u16string& Subject() const { return subject_; }

 private:
  std::int32_t number_;
  std::u16string description_;
  std::u16string subject_;
};

}  // namespace lexmill::platform
