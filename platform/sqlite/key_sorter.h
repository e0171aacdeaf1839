// SPDX-License-Identifier: MIT
// platform/sqlite: the database shell. Sorting more than fits in memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host_file.h"

namespace lexmill::platform::sqlite {

/// Sorts byte strings by unsigned bytes, a prefix first. Memory is constant: what doesn't fit goes
/// to a nameless file in sorted runs. First Add, then Sort, then Next.
class KeySorter {
 public:
  /// @param neighbour   path of a file on whose disk runs are put aside
  /// @param bufferSize  bytes of memory, some of which each string takes besides its length
  KeySorter(std::string neighbour, std::size_t bufferSize);

  /// Adds the string that the parts make together.
  void Add(std::initializer_list<std::string_view> parts);
  [[nodiscard]] std::size_t Count() const { return count_; }
  /// Ends adding. Next then begins with the first string.
  void Sort();
  /// @param key  [out] the next string, good until the following call
  /// @return false behind the last
  [[nodiscard]] bool Next(std::string_view& key);

 private:
  /// A string in the buffer. Comparisons look at eight of its bytes, which stand here.
  struct Entry {
    std::uint64_t head = 0;  ///< the bytes as a number, zeros behind the string's end
    std::uint32_t offset = 0;
    std::uint32_t length = 0;
  };

  /// A sorted part of the file, read piece by piece.
  struct Run {
    std::int64_t at = 0;  ///< where the next piece begins
    std::int64_t end = 0;
    std::string piece;
    std::size_t used = 0;      ///< bytes of the piece that are done with
    std::string_view current;  ///< in the piece
    std::uint64_t head = 0;
  };

  [[nodiscard]] std::string_view TextOf(const Entry& entry) const {
    return {texts_.data() + entry.offset, entry.length};
  }
  [[nodiscard]] static bool IsBehind(const Run* left, const Run* right);
  void SortEntries();
  void SortBehind(std::span<Entry> entries, std::size_t depth);
  void SortAlike(std::span<Entry> entries, std::size_t depth);
  void Spill();
  void OpenRuns();
  void Push(Run& run);
  [[nodiscard]] bool Advance(Run& run);
  [[nodiscard]] bool Has(Run& run, std::size_t size);
  [[nodiscard]] bool NextOfRuns(std::string_view& key);

  std::string neighbour_;
  std::size_t bufferSize_;
  std::string texts_;
  std::vector<Entry> entries_;
  std::size_t count_ = 0;
  std::size_t given_ = 0;  ///< entries that Next has been through
  HostFile file_;
  std::int64_t fileSize_ = 0;
  std::vector<Run> runs_;
  std::vector<Run*> heap_;  ///< the run with the least string on top
  Run* last_ = nullptr;     ///< the run that gave the last string
};

}  // namespace lexmill::platform::sqlite
