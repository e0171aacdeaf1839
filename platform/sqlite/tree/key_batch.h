// SPDX-License-Identifier: MIT
// platform/sqlite/tree: Sorting what fits in memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace lexmill::platform::sqlite {

/// The first eight bytes of `text` as a number that orders as they do, zeros behind its end.
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
  /// A string in the buffer. Comparisons look at eight of its bytes, which stand here.
  struct Entry {
    std::uint64_t head = 0;  ///< the bytes as a number, zeros behind the string's end
    std::uint32_t offset = 0;
    std::uint32_t length = 0;
  };

  using Order = std::pair<std::uint64_t, std::size_t>;

  [[nodiscard]] std::string_view TextOf(const Entry& entry) const {
    return {texts_.data() + entry.offset, entry.length};
  }
  void SortBehind(std::span<Entry> entries, std::size_t depth, int steps);
  void SortAlike(std::span<Entry> entries, std::size_t depth);
  [[nodiscard]] static int StepsFor(std::span<const Entry> entries);
  [[nodiscard]] static Order OrderOf(const Entry& entry, std::size_t end);
  [[nodiscard]] static Order MiddleOf(std::span<const Entry> entries, std::size_t end);
  [[nodiscard]] static std::pair<std::size_t, std::size_t> Part(std::span<Entry> entries,
                                                                const Order& pivot,
                                                                std::size_t end);

  std::string texts_;
  std::vector<Entry> entries_;
};

}  // namespace lexmill::platform::sqlite
