// SPDX-License-Identifier: MIT
#include "run/shared/string_tally.h"

#include <functional>
#include <utility>

namespace lexmill {
namespace {

constexpr std::uint64_t kTranslations = 3;  // the bits that count them
constexpr std::uint64_t kMarksTaken = 4;    // so that no key is 0
constexpr std::size_t kFewestSlots = 1024;

static_assert(sizeof(std::size_t) == sizeof(std::uint64_t), "a shorter hash would miscount");

std::uint64_t KeyOf(std::u16string_view string) {
  return (std::hash<std::u16string_view>()(AsStored(string)) | kMarksTaken) & ~kTranslations;
}

}  // namespace

std::u16string_view AsStored(std::u16string_view value) {
  return value.substr(0, value.find(u'\0'));
}

void StringTally::Add(std::u16string_view string) {
  if (taken_ >= slots_.size() / 4 * 3) {
    Grow();
  }
  const std::uint64_t key = KeyOf(string);
  std::uint64_t& slot = SlotOf(key);
  if (slot == 0) {
    slot = key;
    ++taken_;
  } else {
    ++repeated_[key];
  }
}

StringTally::Gained StringTally::Translate(std::u16string_view string) {
  if (slots_.empty()) {
    return {};
  }
  const std::uint64_t key = KeyOf(string);
  std::uint64_t& slot = SlotOf(key);
  const std::uint64_t before = slot & kTranslations;
  if (slot == 0 || before == 2) {
    return {};
  }
  ++slot;
  const std::int64_t entries = EntriesOf(key);
  return before == 0 ? Gained{.filled = entries} : Gained{.several = entries};
}

std::int64_t StringTally::Entries(std::u16string_view string) const {
  const std::uint64_t key = KeyOf(string);
  return slots_.empty() || slots_[PlaceOf(key)] == 0 ? 0 : EntriesOf(key);
}

// Of a key that a slot holds.
std::int64_t StringTally::EntriesOf(std::uint64_t key) const {
  const auto repeated = repeated_.find(key);
  return repeated == repeated_.end() ? 1 : repeated->second + 1;
}

// Position of the slot that holds `key`, or of the free one that would.
std::size_t StringTally::PlaceOf(std::uint64_t key) const {
  constexpr int kBitsBelow = 3;
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = (key >> kBitsBelow) & mask;
  while (slots_[at] != 0 && (slots_[at] & ~kTranslations) != key) {
    at = (at + 1) & mask;
  }
  return at;
}

void StringTally::Grow() {
  const auto old = std::exchange(
      slots_, std::vector<std::uint64_t>(slots_.empty() ? kFewestSlots : slots_.size() * 2));
  for (const std::uint64_t slot : old) {
    if (slot != 0) {
      SlotOf(slot & ~kTranslations) = slot;
    }
  }
}

}  // namespace lexmill
