// SPDX-License-Identifier: MIT
// platform/sqlite/tree: sorting what fits in memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace lexmill::platform::sqlite {

/// The first eight bytes of `text` as a number that orders as they do, zeros after its end.
[[nodiscard]] std::uint64_t HeadOf(std::string_view text);

/// Byte strings that are sorted by unsigned bytes, a prefix first, in a constant amount of memory.
class KeyBatch {
 public:
  /// @param bufferSize  bytes of memory, some of which each string takes besides its length
  explicit KeyBatch(std::size_t bufferSize);

  /// Whether a string of `length` bytes fits in. One of any length fits in an empty batch.
  [[nodiscard]] bool HasRoom(std::size_t length) const;
  /// Adds the string that the parts make together.
  void Add(std::initializer_list<std::string_view> parts);
  void Sort();
  /// Drops the strings and keeps the memory.
  void Clear();

  [[nodiscard]] std::size_t Size() const { return entries_.size(); }
  /// A string by its position, counted from 0; good until the batch changes.
  [[nodiscard]] std::string_view At(std::size_t position) const {
    return TextOf(entries_[position]);
  }

 private:
  /// A string in the buffer. Comparisons look at eight of its bytes, which are here.
  struct Entry {
    std::uint64_t head = 0;
    std::uint32_t offset = 0;
    std::uint32_t length = 0;
  };

  [[nodiscard]] std::string_view TextOf(const Entry& entry) const {
    return {texts_.data() + entry.offset, entry.length};
  }
  void SortByHeads(std::span<Entry> entries, std::size_t depth, int steps);
  void SortAlike(std::span<Entry> entries, std::size_t depth);
  [[nodiscard]] static int StepsFor(std::size_t entries);
  [[nodiscard]] static std::uint64_t MiddleHead(std::span<const Entry> entries);

  std::string texts_;
  std::vector<Entry> entries_;
};

}  // namespace lexmill::platform::sqlite
