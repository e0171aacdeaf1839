// SPDX-License-Identifier: MIT
// tests/sqlite: a second opinion on database files, which shares no code with the program.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lexmill::test {

using FileValue = std::optional<std::string>;
using FileRow = std::vector<FileValue>;

/// What a file holds, taken from its bytes alone.
struct FileContent {
  /// All that is wrong with the file, one finding a line; "" if nothing is.
  std::string findings;
  std::map<std::string, std::map<std::int32_t, FileRow>> tables;  ///< by name, rows by number
  std::uint32_t freePages = 0;
  std::uint32_t pages = 0;
};

/// Reads a file and checks it: every page has one user, trees are in order and equally deep, cells
/// and free blocks cover each page, index entries and rows belong to each other one by one, and the
/// free list has the length that the header says. Index columns are taken from statements of the
/// form `CREATE INDEX i ON T(a,b)`.
[[nodiscard]] FileContent CheckFile(std::string_view bytes);

}  // namespace lexmill::test
