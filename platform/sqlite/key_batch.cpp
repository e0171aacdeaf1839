// SPDX-License-Identifier: MIT
#include "platform/sqlite/key_batch.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/sqlite/page.h"

namespace lexmill::platform::sqlite {
namespace {

constexpr std::size_t kHeadSize = 8;

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
  SortBehind(entries_, 0);
}

void KeyBatch::Clear() {
  texts_.clear();
  entries_.clear();
}

/// Sorts strings whose first `depth` bytes are alike and whose heads are the bytes behind. Each
/// text is looked at once for every eight bytes, not once for every comparison.
void KeyBatch::SortBehind(std::span<Entry> entries, std::size_t depth) {
  const std::size_t end = depth + kHeadSize;
  const auto order = [end](const Entry& entry) {
    return std::pair(entry.head, std::min<std::size_t>(entry.length, end + 1));
  };
  std::ranges::sort(entries, {}, order);
  for (auto from = entries.begin(); from != entries.end();) {
    const auto to = std::find_if(from + 1, entries.end(),
                                 [&](const Entry& entry) { return order(entry) != order(*from); });
    if (to - from > 1 && from->length > end) {
      SortAlike({from, to}, end);
    }
    from = to;
  }
}

/// Sorts strings whose first `depth` bytes are alike.
void KeyBatch::SortAlike(std::span<Entry> entries, std::size_t depth) {
  constexpr std::size_t kFewEntries = 4;
  constexpr std::size_t kDeepest = 256;
  if (entries.size() <= kFewEntries || depth > kDeepest) {
    std::ranges::sort(entries, {}, [this](const Entry& entry) { return TextOf(entry); });
    return;
  }
  for (Entry& entry : entries) {
    entry.head = HeadOf(TextOf(entry).substr(depth));
  }
  SortBehind(entries, depth);
}

}  // namespace lexmill::platform::sqlite
