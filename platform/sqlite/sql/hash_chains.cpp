// SPDX-License-Identifier: MIT
// The hashes of a slot form a ring: each entry names the next, the last one the first, and the slot
// names the last. So a number is added at the end of its slot, and a search begins with the first,
// with one number for each slot. There are at least as many slots as hashes.
#include "platform/sqlite/sql/hash_chains.h"

#include <functional>

namespace lexmill::platform::sqlite {

std::uint32_t HashOf(std::string_view text) {
  return static_cast<std::uint32_t>(std::hash<std::string_view>{}(text));
}

std::uint32_t HashOf(std::span<const Value> values, std::uint32_t seed) {
  constexpr std::uint32_t kFactor = 0x9E3779B1;  // odd, its bits spread: 2^32 by the golden ratio
  std::uint32_t hash = seed;
  for (const Value& value : values) {
    hash = hash * kFactor + (value ? HashOf(*value) : 1);
  }
  return hash;
}

void HashChains::Add(std::uint32_t hash) {
  if (entries_.size() == lastOfSlot_.size()) {
    DoubleSlots();
  }
  entries_.push_back({hash, kNone});
  Link(static_cast<std::uint32_t>(entries_.size() - 1));
}

std::uint32_t HashChains::FindFrom(std::uint32_t number, std::uint32_t last,
                                   std::uint32_t hash) const {
  for (; entries_[number].hash != hash; number = entries_[number].next) {
    if (number == last) {
      return kNone;
    }
  }
  return number;
}

/// Puts a number at the end of its slot.
void HashChains::Link(std::uint32_t number) {
  Entry& entry = entries_[number];
  present_[BitOf(entry.hash)] = true;
  std::uint32_t& last = lastOfSlot_[SlotOf(entry.hash)];
  entry.next = number;
  if (last != kNone) {
    entry.next = entries_[last].next;
    entries_[last].next = number;
  }
  last = number;
}

void HashChains::DoubleSlots() {
  const std::size_t count = 2 * lastOfSlot_.size();
  lastOfSlot_ = {};  // the old ones go before the new ones come
  lastOfSlot_.assign(count, kNone);
  present_.assign(count * kBitsOfSlot, false);
  for (std::uint32_t number = 0; number < entries_.size(); ++number) {
    Link(number);
  }
}

}  // namespace lexmill::platform::sqlite
