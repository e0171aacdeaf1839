// SPDX-License-Identifier: MIT
// run/shared: what every room may read of a run.
// How many entries each string of a ready dictionary represents.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace lexmill {

/// What the database keeps of a value: it ends one at a NUL.
[[nodiscard]] std::u16string_view AsStored(std::u16string_view value);

/// Keeps the strings that a run looks for as 64-bit hashes, 8 to 16 bytes for each different one,
/// so that no dictionary is held in memory. Of a million strings two meet in a hash once in four
/// million runs; a count is then wrong by one.
class StringTally {
 public:
  /// What a translation changes.
  struct Gained {
    std::int64_t filled = 0;   ///< entries that it is the first translation of
    std::int64_t several = 0;  ///< entries that it is the second one of

    bool operator==(const Gained&) const = default;
  };

  /// One more entry of this string.
  void Add(std::u16string_view string);
  /// How often this string was added.
  [[nodiscard]] std::int64_t Entries(std::u16string_view string) const;
  /// One more translation of this string, different from all others of it. A string that was never
  /// added gains nothing.
  [[nodiscard]] Gained Translate(std::u16string_view string);

 private:
  [[nodiscard]] std::size_t PlaceOf(std::uint64_t key) const;
  [[nodiscard]] std::uint64_t& SlotOf(std::uint64_t key) { return slots_[PlaceOf(key)]; }
  [[nodiscard]] std::int64_t EntriesOf(std::uint64_t key) const;
  void Grow();

  /// A slot holds a key and, in its two lowest bits, how many translations the string has: 0, 1 or
  /// more. 0 is a free slot, and no key. At most three quarters of the slots are taken, and their
  /// number is a power of two.
  std::vector<std::uint64_t> slots_;
  std::size_t taken_ = 0;
  std::unordered_map<std::uint64_t, std::int64_t> repeated_;  ///< entries beyond the first, by key
};

}  // namespace lexmill
