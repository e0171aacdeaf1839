// SPDX-License-Identifier: MIT
// Rows lie one after the other in blocks of a megabyte, none across two of them. A value is its
// length, of two bytes, and its bytes; NULL is a mark in the place of the length, and so is a text
// that the row's first value holds as a part, with length and place after it: what a table is
// joined by is often a piece of the text beside it.
#include "platform/sqlite/sql/packed_rows.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace lexmill::platform::sqlite {
namespace {

constexpr std::size_t kBlockSize = 1024 * 1024;

/// Before each value comes its length, or one of these marks.
using Length = std::uint16_t;
constexpr Length kNull = UINT16_MAX;
/// After it come the length and the place in the row's first value.
constexpr Length kPartOfFirst = UINT16_MAX - 1;

/// Shorter texts take no more room than a place.
constexpr std::size_t kShortestPart = 3 * sizeof(Length);

char* Put(char* to, std::size_t number) {
  const auto length = static_cast<Length>(number);
  std::memcpy(to, &length, sizeof length);
  return to + sizeof length;
}

std::size_t Take(const char*& from) {
  Length length = 0;
  std::memcpy(&length, from, sizeof length);
  from += sizeof length;
  return length;
}

}  // namespace

std::uint32_t PackedRows::Add(std::span<const Value> values) {
  std::size_t size = values.size() * sizeof(Length);
  for (const Value& value : values) {
    size += value ? value->size() : 0;
  }
  char* to = size < kPartOfFirst ? Reserve(size) : nullptr;
  if (to == nullptr) {
    return kNoPlace;
  }
  const char* const end = to + size;
  const std::string_view first = values.front().value_or(std::string_view());
  bool isFirst = true;
  for (const Value& value : values) {
    const std::string_view text = value.value_or(std::string_view());
    const std::size_t part =
        isFirst || text.size() < kShortestPart ? std::string_view::npos : first.find(text);
    isFirst = false;
    if (part != std::string_view::npos) {
      to = Put(Put(Put(to, kPartOfFirst), text.size()), part);
    } else {
      to = Put(to, value ? text.size() : kNull);
      to = std::copy(text.begin(), text.end(), to);
    }
  }
  const std::size_t place = (blocks_.size() - 1) * kBlockSize + used_ - size;
  used_ -= static_cast<std::size_t>(end - to);  // what parts of the first value saved
  return static_cast<std::uint32_t>(place);
}

void PackedRows::Read(std::uint32_t place, std::span<Value> values) const {
  const char* from = blocks_[place / kBlockSize].get() + place % kBlockSize;
  for (Value& value : values) {
    const std::size_t length = Take(from);
    if (length == kPartOfFirst) {
      const std::size_t size = Take(from);
      value = values.front()->substr(Take(from), size);
    } else if (length == kNull) {
      value.reset();
    } else {
      value.emplace(from, length);
      from += length;
    }
  }
}

/// Room for `size` bytes; null if there is none left.
char* PackedRows::Reserve(std::size_t size) {
  if (blocks_.empty() || used_ + size > kBlockSize) {
    if (blocks_.size() == mostBlocks_) {
      return nullptr;
    }
    blocks_.push_back(std::make_unique_for_overwrite<char[]>(kBlockSize));
    used_ = 0;
  }
  used_ += size;
  return blocks_.back().get() + used_ - size;
}

}  // namespace lexmill::platform::sqlite
