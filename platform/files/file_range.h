// SPDX-License-Identifier: MIT
// platform/files: a stretch of a file.
#pragma once

#include <cstdint>

namespace lexmill::platform {

/// A stretch of a file, from its byte `begin` to before its byte `end`. Above the platform a place
/// is passed on as it was given, to whatever reads or splices the same file.
struct FileRange {
  std::int64_t begin = 0;
  std::int64_t end = 0;

  bool operator==(const FileRange&) const = default;
};

/// The place in front of `place`, of no length.
[[nodiscard]] constexpr FileRange PlaceAt(std::int64_t place) {
  return {place, place};
}

}  // namespace lexmill::platform
