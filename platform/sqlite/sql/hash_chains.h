// SPDX-License-Identifier: MIT
// platform/sqlite/sql: numbers found by hashes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <string_view>
#include <vector>

#include "platform/sqlite/table/table.h"

namespace lexmill::platform::sqlite {

/// The hash of a text.
[[nodiscard]] std::uint32_t HashOf(std::string_view text);
/// The hash of several values, another one for each `seed`.
[[nodiscard]] std::uint32_t HashOf(std::span<const Value> values, std::uint32_t seed = 0);

/// A growing list of hashes, numbered from 0 in the order in which they were added, that finds the
/// numbers of equal ones in that order. What they are the hashes of is for the caller to keep.
/// Takes 13 to 18 bytes of memory for each, and copies none when the list grows.
class HashChains {
 public:
  static constexpr std::uint32_t kNone = UINT32_MAX;

  HashChains() : lastOfSlot_(kFewestSlots, kNone), present_(kFewestSlots * kBitsOfSlot) {}

  /// Adds a hash. Its number is the count of those before.
  void Add(std::uint32_t hash);

  /// The first number with that hash; kNone if there is none.
  [[nodiscard]] std::uint32_t First(std::uint32_t hash) const {
    if (!present_[BitOf(hash)]) {
      return kNone;
    }
    const std::uint32_t last = lastOfSlot_[SlotOf(hash)];
    return last == kNone ? kNone : FindFrom(entries_[last].next, last, hash);
  }

  /// The next number with the same hash; kNone after the last.
  [[nodiscard]] std::uint32_t Next(std::uint32_t number) const {
    const Entry& entry = entries_[number];
    const std::uint32_t last = lastOfSlot_[SlotOf(entry.hash)];
    return number == last ? kNone : FindFrom(entry.next, last, entry.hash);
  }

 private:
  static constexpr std::size_t kFewestSlots = 1024;
  static constexpr std::size_t kBitsOfSlot = 8;

  struct Entry {
    std::uint32_t hash;
    std::uint32_t next;  ///< in the same slot; after the last comes the first
  };

  [[nodiscard]] std::size_t SlotOf(std::uint32_t hash) const {
    return hash & (lastOfSlot_.size() - 1);
  }
  [[nodiscard]] std::size_t BitOf(std::uint32_t hash) const {
    return hash & (lastOfSlot_.size() * kBitsOfSlot - 1);
  }
  [[nodiscard]] std::uint32_t FindFrom(std::uint32_t number, std::uint32_t last,
                                       std::uint32_t hash) const;
  void Link(std::uint32_t number);
  void DoubleSlots();

  std::deque<Entry> entries_;
  std::vector<std::uint32_t> lastOfSlot_;  ///< a power of two of them
  /// A bit for each hash: small enough to stay near the processor, where most searches end.
  std::vector<bool> present_;
};

}  // namespace lexmill::platform::sqlite
