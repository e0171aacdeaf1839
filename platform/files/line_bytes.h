// SPDX-License-Identifier: MIT
// platform/files: the lines of a file as bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/host/host_file.h"

namespace lexmill::platform {

/// Cuts a file into lines. LF ends a line; it is never part of another character, neither in a code
/// page nor in UTF-8. Buffered.
class LineBytes {
 public:
  explicit LineBytes(HostFile file);

  /// Passes over `mark` if the file begins with it. @throws Failure as Next
  void SkipMark(std::string_view mark);

  /// True if no line is left. @throws Failure as Next
  [[nodiscard]] bool AtEnd() { return begin_ == end_ && !Fill(); }

  /// The next line with its end, good until the next call; empty if none is left. A last line
  /// without an end counts.
  /// @throws Failure DeviceError if the host can't read, ObjectNotSet after Close
  [[nodiscard]] std::string_view Next() { return Take(LineLength()); }

  /// Bytes of the file that the lines so far took, a mark included.
  [[nodiscard]] std::int64_t BytesRead() const { return bytesRead_; }

  void Close();

 private:
  [[nodiscard]] bool Fill();
  void MakeRoom();
  [[nodiscard]] std::size_t LineLength();
  std::string_view Take(std::size_t length);

  HostFile file_;
  std::vector<char> buffer_;
  std::size_t begin_ = 0;  ///< bytes of the buffer from here to `end_` are not read yet
  std::size_t end_ = 0;
  bool atEnd_ = false;
  std::int64_t bytesRead_ = 0;
};

}  // namespace lexmill::platform
