// SPDX-License-Identifier: MIT
// platform/sqlite: the database shell. Where its bytes come from and go to.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace lexmill::platform::sqlite {

/// Reads into the buffer, at least one byte. @return bytes read; 0 at the end; none on failure
using ReadFunction = std::function<std::optional<std::size_t>(std::span<char>)>;
/// Writes all of the bytes. @return false if that failed
using WriteFunction = std::function<bool(std::string_view)>;

/// The streams of a process.
struct ShellStreams {
  ReadFunction input;
  WriteFunction output;
  WriteFunction error;
};

/// Thrown when a stream breaks: nothing more can be done for anyone.
struct StreamFailure {
  std::string_view text;  ///< what it was
};

/// Output that is collected and written in large pieces. Its lines end with CR LF.
class OutputBuffer {
 public:
  /// @param write  has to outlive this object
  explicit OutputBuffer(const WriteFunction& write) : write_(write) { bytes_.reserve(kCapacity); }

  void Append(std::string_view bytes) { bytes_.append(bytes); }

  /// Ends a line; writes if much has come together.
  /// @throws StreamFailure
  void EndLine() {
    bytes_.append("\r\n");
    if (bytes_.size() >= kCapacity) {
      Flush();
    }
  }

  /// Appends `text` line by line, whatever ends its lines.
  /// @throws StreamFailure
  void AppendLines(std::string_view text);

  /// Writes what is left.
  /// @throws StreamFailure
  void Flush();

 private:
  static constexpr std::size_t kCapacity = 64 * 1024;

  const WriteFunction& write_;
  std::string bytes_;
};

}  // namespace lexmill::platform::sqlite
