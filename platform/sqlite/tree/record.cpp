// SPDX-License-Identifier: MIT
#include "platform/sqlite/tree/record.h"

#include <cstring>

#include "platform/sqlite/database_error.h"

namespace lexmill::platform::sqlite {
namespace {

constexpr char kTextMark = 'c';
constexpr char kNullMark = 'a';

/// Bytes that a value takes: its text and a NUL.
std::size_t StoredSize(const Value& value) {
  return value ? value->size() + 1 : 0;
}

/// Offsets are little-endian in every file.
char* PutOffset(char* at, std::size_t width, std::size_t offset) {
  for (std::size_t i = 0; i < width; ++i) {
    *at++ = static_cast<char>(offset >> (8 * i));
  }
  return at;
}

std::size_t WidthFor(std::size_t recordSize) {
  return recordSize < 256 ? 1 : recordSize < 65536 ? 2 : 3;
}

/// The width of offsets decides about the size and the size about the width: the least width that
/// its own result bears out.
RecordShape AnyShapeOf(std::span<const Value> values) {
  std::size_t texts = 0;
  for (const Value& value : values) {
    texts += StoredSize(value);
  }
  const std::size_t offsets = values.size() + 1;
  RecordShape shape;
  shape.offsetWidth = texts + offsets < 256 ? 1 : texts + 2 * offsets < 65536 ? 2 : 3;
  shape.size = texts + shape.offsetWidth * offsets;
  return shape;
}

}  // namespace

/// With the sign bit flipped and the highest byte first, bytes compare as the numbers do.
RowKey ToRowKey(RowId rowId) {
  const std::uint32_t number = static_cast<std::uint32_t>(rowId) ^ 0x80000000U;
  RowKey key{};
  for (std::size_t i = 0; i < key.size(); ++i) {
    key[i] = static_cast<char>(number >> (24 - 8 * i));
  }
  return key;
}

RowId ToRowId(const char* key) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < RowKey{}.size(); ++i) {
    number = number << 8U | static_cast<unsigned char>(key[i]);
  }
  return static_cast<RowId>(number ^ 0x80000000U);
}

RecordShape ShapeOf(std::span<const Value> values) {
  const RecordShape shape = AnyShapeOf(values);
  if (shape.size > kGreatestRecord) {
    throw DatabaseError(kRowTooLong);
  }
  return shape;
}

bool FitsRecord(std::span<const Value> values, std::size_t more) {
  return AnyShapeOf(values).size + more <= kGreatestRecord;
}

void PutRecord(char* at, RecordShape shape, std::span<const Value> values) {
  std::size_t offset = shape.offsetWidth * (values.size() + 1);
  char* text = at + offset;
  for (const Value& value : values) {
    at = PutOffset(at, shape.offsetWidth, offset);
    if (value) {
      std::memcpy(text, value->data(), value->size());
      text += value->size();
      *text++ = '\0';
    }
    offset += StoredSize(value);
  }
  PutOffset(at, shape.offsetWidth, offset);
}

RecordView::RecordView(std::string_view bytes) : bytes_(bytes), width_(WidthFor(bytes.size())) {
  if (bytes.size() < width_) {
    throw DatabaseError(kMalformed);
  }
  const std::size_t first = Offset(0);
  if (first < width_ || first % width_ != 0 || first > bytes.size()) {
    throw DatabaseError(kMalformed);
  }
  columns_ = first / width_ - 1;
}

std::size_t RecordView::Offset(std::size_t index) const {
  std::size_t offset = 0;
  for (std::size_t i = width_; i-- > 0;) {
    offset = offset << 8U | static_cast<unsigned char>(bytes_[index * width_ + i]);
  }
  return offset;
}

Value RecordView::Column(std::size_t column) const {
  if (column >= columns_) {
    return std::nullopt;
  }
  const std::size_t begin = Offset(column);
  const std::size_t end = Offset(column + 1);
  if (begin > end || end > bytes_.size()) {
    throw DatabaseError(kMalformed);
  }
  if (begin == end) {
    return std::nullopt;
  }
  if (bytes_[end - 1] != '\0') {
    throw DatabaseError(kMalformed);
  }
  return bytes_.substr(begin, end - begin - 1);
}

void AppendIndexText(std::string& key, Value text) {
  key += text ? kTextMark : kNullMark;
  if (text) {
    key += *text;
  }
  key += '\0';
}

void AppendRowKey(std::string& key, RowId rowId) {
  const RowKey rowKey = ToRowKey(rowId);
  key.append(rowKey.data(), rowKey.size());
}

}  // namespace lexmill::platform::sqlite
