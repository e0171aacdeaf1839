// SPDX-License-Identifier: MIT
#include "platform/sqlite/packed_rows.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace lexmill::platform::sqlite {
namespace {

constexpr std::size_t kBlockSize = 1024 * 1024;

/// Before each value stands its length, or this for NULL.
using Length = std::uint16_t;
constexpr Length kNull = UINT16_MAX;

}  // namespace

std::uint32_t PackedRows::Add(std::span<const Value> values) {
  std::size_t size = values.size() * sizeof(Length);
  for (const Value& value : values) {
    size += value ? value->size() : 0;
  }
  char* to = size < kNull ? Reserve(size) : nullptr;
  if (to == nullptr) {
    return kNoPlace;
  }
  for (const Value& value : values) {
    const std::string_view text = value.value_or(std::string_view());
    const Length length = value ? static_cast<Length>(text.size()) : kNull;
    std::memcpy(to, &length, sizeof length);
    to = std::copy(text.begin(), text.end(), to + sizeof length);
  }
  return static_cast<std::uint32_t>((blocks_.size() - 1) * kBlockSize + used_ - size);
}

void PackedRows::Read(std::uint32_t place, std::span<Value> values) const {
  const char* from = blocks_[place / kBlockSize].get() + place % kBlockSize;
  for (Value& value : values) {
    Length length = 0;
    std::memcpy(&length, from, sizeof length);
    from += sizeof length;
    value.reset();
    if (length != kNull) {
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
