// SPDX-License-Identifier: MIT
// platform/sqlite/file: where the fields of a page are, and their byte order.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace lexmill::platform::sqlite {

/// Number of a page, from 1; 0 means "none".
using PageNumber = std::uint32_t;

inline constexpr std::size_t kPageSize = 1024;
inline constexpr PageNumber kHeadPage = 1;
inline constexpr PageNumber kMasterRoot = 2;

/// Byte order of a file's integers: that of the machine that created it.
enum class ByteOrder { Little, Big };

namespace detail {
inline constexpr ByteOrder kNativeOrder =
    std::endian::native == std::endian::little ? ByteOrder::Little : ByteOrder::Big;

[[nodiscard]] constexpr std::uint16_t Swapped(std::uint16_t value) {
  return static_cast<std::uint16_t>(value << 8U | value >> 8U);
}

[[nodiscard]] constexpr std::uint32_t Swapped(std::uint32_t value) {
  return value << 24U | (value & 0xFF00U) << 8U | (value >> 8U & 0xFF00U) | value >> 24U;
}
}  // namespace detail

[[nodiscard]] inline std::uint16_t Get16(const char* at, ByteOrder order) {
  std::uint16_t value = 0;
  std::memcpy(&value, at, sizeof value);
  return order == detail::kNativeOrder ? value : detail::Swapped(value);
}

[[nodiscard]] inline std::uint32_t Get32(const char* at, ByteOrder order) {
  std::uint32_t value = 0;
  std::memcpy(&value, at, sizeof value);
  return order == detail::kNativeOrder ? value : detail::Swapped(value);
}

inline void Put16(char* at, std::size_t number, ByteOrder order) {
  auto value = static_cast<std::uint16_t>(number);
  value = order == detail::kNativeOrder ? value : detail::Swapped(value);
  std::memcpy(at, &value, sizeof value);
}

inline void Put32(char* at, std::uint32_t value, ByteOrder order) {
  value = order == detail::kNativeOrder ? value : detail::Swapped(value);
  std::memcpy(at, &value, sizeof value);
}

// Tree page: head, then cells and free blocks.
inline constexpr std::size_t kRightChildAt = 0;
inline constexpr std::size_t kFirstCellAt = 4;
inline constexpr std::size_t kFirstFreeAt = 6;
inline constexpr std::size_t kPageHeadSize = 8;
inline constexpr std::size_t kPageRoom = kPageSize - kPageHeadSize;

// Cell: head, then the key directly followed by the data, as far as they go.
inline constexpr std::size_t kLeftChildAt = 0;
inline constexpr std::size_t kKeyLowAt = 4;
inline constexpr std::size_t kNextCellAt = 6;
inline constexpr std::size_t kKeyHighAt = 8;
inline constexpr std::size_t kDataHighAt = 9;
inline constexpr std::size_t kDataLowAt = 10;
inline constexpr std::size_t kCellHeadSize = 12;
inline constexpr std::size_t kLocalPayload = 236;
inline constexpr std::size_t kOverflowLinkAt = kCellHeadSize + kLocalPayload;
inline constexpr std::size_t kGreatestCell = kOverflowLinkAt + 4;

// Overflow page: link to the next, then payload.
inline constexpr std::size_t kOverflowHead = 4;
inline constexpr std::size_t kOverflowRoom = kPageSize - kOverflowHead;

/// Chains of one child each are damage, so no tree of 32-bit page numbers is deeper.
inline constexpr std::size_t kGreatestDepth = 32;

/// Bytes that a cell takes for a key and data of `payload` bytes together.
[[nodiscard]] constexpr std::size_t CellSize(std::size_t payload) {
  return payload > kLocalPayload ? kGreatestCell : (kCellHeadSize + payload + 3) & ~std::size_t{3};
}

/// A cell in a page or a buffer. Cheap to copy; good as long as those bytes.
class CellView {
 public:
  CellView(const char* at, ByteOrder order) : at_(at), order_(order) {}

  [[nodiscard]] const char* Bytes() const { return at_; }
  [[nodiscard]] PageNumber LeftChild() const { return Get32(at_ + kLeftChildAt, order_); }
  [[nodiscard]] std::size_t Next() const { return Get16(at_ + kNextCellAt, order_); }
  [[nodiscard]] std::size_t KeyLength() const { return Length(kKeyLowAt, kKeyHighAt); }
  [[nodiscard]] std::size_t DataLength() const { return Length(kDataLowAt, kDataHighAt); }
  [[nodiscard]] std::size_t PayloadLength() const { return KeyLength() + DataLength(); }
  [[nodiscard]] std::size_t Size() const { return CellSize(PayloadLength()); }
  [[nodiscard]] const char* Payload() const { return at_ + kCellHeadSize; }
  [[nodiscard]] bool HasOverflow() const { return PayloadLength() > kLocalPayload; }
  [[nodiscard]] PageNumber FirstOverflow() const { return Get32(at_ + kOverflowLinkAt, order_); }

 private:
  [[nodiscard]] std::size_t Length(std::size_t low, std::size_t high) const {
    return Get16(at_ + low, order_) | std::size_t{static_cast<unsigned char>(at_[high])} << 16U;
  }

  const char* at_;
  ByteOrder order_;
};

/// Writes the head of a cell, without its place in a chain.
void PutCellHead(char* at, PageNumber leftChild, std::size_t keyLength, std::size_t dataLength,
                 ByteOrder order);

/// Makes `page` an empty tree.
void PutEmptyTree(char* page, ByteOrder order);

/// Throws kMalformed unless cells and free blocks of a tree page are in order: inside the page,
/// none over another, together exactly its room; either every cell has a left child and the page a
/// right one, or none has.
void CheckTreePage(const char* page, ByteOrder order);

}  // namespace lexmill::platform::sqlite
