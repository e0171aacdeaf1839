// SPDX-License-Identifier: MIT

// Keys of a dictionary's index begin alike by the hundred ("Open the ...", "Remove ..."), so a sort
// that compares whole texts reads the same beginnings again and again. This one compares eight
// bytes at a time, as one number, the head, which is kept in the entry:
//
//   - Quicksort parts the entries by one of their heads into less, alike and greater.
//   - The alike ones have eight more bytes in common; they get the next eight as their heads and
//     are sorted by those. So a text is read once for each eight bytes it shares, not once for each
//     comparison.
//   - Few entries are left to the library's sort, which compares texts from the head on. So are
//     entries that have been parted too often (an order made to be slow) or that have too much in
//     common (recursion has to end).
//
// Invariant: in SortByHeads(entries, depth), all texts are longer than `depth`, or `depth` is 0;
// their first `depth` bytes are equal, and each head is made of the bytes from `depth` on.
//
// In a whole run over 300,000 entries this takes 6 to 9 % less processor time than std::sort alone.

#include "platform/sqlite/tree/key_batch.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#include "platform/sqlite/file/page.h"

namespace lexmill::platform::sqlite {
namespace {

constexpr std::size_t kHeadSize = 8;
constexpr std::size_t kFewEntries = 12;
constexpr std::size_t kDeepest = 256;

}  // namespace

std::uint64_t HeadOf(std::string_view text) {
  std::array<char, kHeadSize> bytes{};
  if (text.size() >= kHeadSize) {
    std::memcpy(bytes.data(), text.data(), kHeadSize);  // a length known to the compiler: no call
  } else {
    text.copy(bytes.data(), text.size());
  }
  const std::uint64_t high = Get32(bytes.data(), ByteOrder::Big);
  return high << 32U | Get32(bytes.data() + 4, ByteOrder::Big);
}

KeyBatch::KeyBatch(std::size_t bufferSize) {
  // Reserved memory that isn't touched costs nothing.
  texts_.reserve(bufferSize * 2 / 3);
  entries_.reserve(bufferSize / 3 / sizeof(Entry));
}

bool KeyBatch::HasRoom(std::size_t length) const {
  return entries_.empty() ||
         (texts_.size() + length <= texts_.capacity() && entries_.size() < entries_.capacity());
}

void KeyBatch::Add(std::initializer_list<std::string_view> parts) {
  Entry entry;
  entry.offset = static_cast<std::uint32_t>(texts_.size());
  for (const std::string_view part : parts) {
    texts_ += part;
  }
  entry.length = static_cast<std::uint32_t>(texts_.size() - entry.offset);
  entry.head = HeadOf(TextOf(entry));
  entries_.push_back(entry);
}

void KeyBatch::Sort() {
  SortByHeads(entries_, 0, StepsFor(entries_.size()));
}

void KeyBatch::Clear() {
  texts_.clear();
  entries_.clear();
}

/// @param steps  how often the entries may still be parted
void KeyBatch::SortByHeads(std::span<Entry> entries, std::size_t depth, int steps) {
  for (; entries.size() > kFewEntries && steps > 0; --steps) {
    const std::uint64_t pivot = MiddleHead(entries);
    const auto from = std::partition(entries.begin(), entries.end(),
                                     [pivot](const Entry& entry) { return entry.head < pivot; });
    const auto after = std::partition(from, entries.end(),
                                      [pivot](const Entry& entry) { return entry.head == pivot; });
    SortByHeads({entries.begin(), from}, depth, steps - 1);
    SortAlike({from, after}, depth + kHeadSize);
    entries = {after, entries.end()};
  }
  std::ranges::sort(entries, [this](const Entry& left, const Entry& right) {
    return left.head != right.head ? left.head < right.head : TextOf(left) < TextOf(right);
  });
}

/// Sorts texts whose first `depth` bytes are alike, zeros taken for what is after an end: a head
/// doesn't show whether a text ends within it or goes on with NUL bytes, but the length does.
void KeyBatch::SortAlike(std::span<Entry> entries, std::size_t depth) {
  const auto ended = [depth](const Entry& entry) { return entry.length <= depth; };
  const auto first = std::partition(entries.begin(), entries.end(), ended);
  std::ranges::sort(entries.begin(), first, {}, &Entry::length);
  const std::span<Entry> longer(first, entries.end());
  if (depth > kDeepest) {
    std::ranges::sort(longer, {}, [this](const Entry& entry) { return TextOf(entry); });
    return;
  }
  for (Entry& entry : longer) {
    entry.head = HeadOf(TextOf(entry).substr(depth));
  }
  SortByHeads(longer, depth, StepsFor(longer.size()));
}

/// Twice as many steps as it takes to part entries in halves: bad luck is granted, bad faith not.
int KeyBatch::StepsFor(std::size_t entries) {
  return 2 * static_cast<int>(std::bit_width(entries));
}

/// The middle one of three heads.
std::uint64_t KeyBatch::MiddleHead(std::span<const Entry> entries) {
  const auto [least, greatest] = std::minmax(entries.front().head, entries.back().head);
  return std::clamp(entries[entries.size() / 2].head, least, greatest);
}

}  // namespace lexmill::platform::sqlite
