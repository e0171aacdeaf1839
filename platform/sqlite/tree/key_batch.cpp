// SPDX-License-Identifier: MIT
#include "platform/sqlite/tree/key_batch.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

#include "platform/sqlite/file/page.h"

namespace lexmill::platform::sqlite {
namespace {

constexpr std::size_t kHeadSize = 8;
constexpr std::size_t kFewEntries = 12;
constexpr std::size_t kDeepest = 256;

}  // namespace

std::uint64_t HeadOf(std::string_view text) {
  std::array<char, kHeadSize> bytes{};
  text.copy(bytes.data(), bytes.size());
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
  SortBehind(entries_, 0, StepsFor(entries_));
}

void KeyBatch::Clear() {
  texts_.clear();
  entries_.clear();
}

/// Sorts strings whose first `depth` bytes are alike and whose heads are the bytes behind: parts
/// them by one of the heads into those before it, those with it and those behind it. The middle
/// part goes on with the next bytes. Strings of a dictionary have many beginnings in common.
/// @param steps  how often they may still be parted; behind that, and behind too many bytes in
///   common, the sort of the library takes over, which no order of the strings makes slow
void KeyBatch::SortBehind(std::span<Entry> entries, std::size_t depth, int steps) {
  const std::size_t end = depth + kHeadSize;
  while (entries.size() > kFewEntries && steps > 0 && depth <= kDeepest) {
    --steps;
    const Order pivot = MiddleOf(entries, end);
    const auto [before, behind] = Part(entries, pivot, end);
    SortBehind(entries.first(before), depth, steps);
    if (pivot.second > end) {
      SortAlike(entries.subspan(before, behind - before), end);
    }
    entries = entries.subspan(behind);
  }
  std::ranges::sort(entries, [this](const Entry& left, const Entry& right) {
    return left.head != right.head ? left.head < right.head : TextOf(left) < TextOf(right);
  });
}

/// Sorts strings whose first `depth` bytes are alike.
void KeyBatch::SortAlike(std::span<Entry> entries, std::size_t depth) {
  for (Entry& entry : entries) {
    entry.head = HeadOf(TextOf(entry).substr(depth));
  }
  SortBehind(entries, depth, StepsFor(entries));
}

/// Twice as many steps as entries that are parted in halves take.
int KeyBatch::StepsFor(std::span<const Entry> entries) {
  return 2 * static_cast<int>(std::bit_width(entries.size()));
}

/// What parts entries: the head, and, where one ends before `end`, the length.
KeyBatch::Order KeyBatch::OrderOf(const Entry& entry, std::size_t end) {
  return {entry.head, std::min<std::size_t>(entry.length, end + 1)};
}

/// The middle one of three.
KeyBatch::Order KeyBatch::MiddleOf(std::span<const Entry> entries, std::size_t end) {
  const Order first = OrderOf(entries.front(), end);
  const Order last = OrderOf(entries.back(), end);
  const Order middle = OrderOf(entries[entries.size() / 2], end);
  return std::max(std::min(first, last), std::min(std::max(first, last), middle));
}

/// Puts entries before `pivot` to the front and those behind it to the back.
/// @return where the ones with its order begin and end
std::pair<std::size_t, std::size_t> KeyBatch::Part(std::span<Entry> entries, const Order& pivot,
                                                   std::size_t end) {
  std::size_t before = 0;
  std::size_t behind = entries.size();
  for (std::size_t at = 0; at < behind;) {
    const Order order = OrderOf(entries[at], end);
    if (order < pivot) {
      std::swap(entries[before++], entries[at++]);
    } else if (pivot < order) {
      std::swap(entries[at], entries[--behind]);
    } else {
      ++at;
    }
  }
  return {before, behind};
}

}  // namespace lexmill::platform::sqlite
