// SPDX-License-Identifier: MIT
// platform/sqlite/tree: rows, row numbers and index entries as bytes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace lexmill::platform::sqlite {

/// Number of a row in its table.
using RowId = std::int32_t;
/// A column's value: text without NUL bytes, or none for NULL.
using Value = std::optional<std::string_view>;

inline constexpr std::size_t kGreatestRecord = 1048576;

/// The key of a row in its table's tree: the order of the keys' bytes is that of the numbers.
using RowKey = std::array<char, 4>;
[[nodiscard]] RowKey ToRowKey(RowId rowId);
/// @param key  at least four bytes
[[nodiscard]] RowId ToRowId(const char* key);

/// A record's shape, worked out before its bytes are written.
struct RecordShape {
  std::size_t offsetWidth = 0;  ///< bytes of each offset
  std::size_t size = 0;         ///< of the whole record
};
/// @throws DatabaseError kRowTooLong above kGreatestRecord bytes
[[nodiscard]] RecordShape ShapeOf(std::span<const Value> values);
[[nodiscard]] bool FitsRecord(std::span<const Value> values, std::size_t more = 0);
/// Writes a record of `shape.size` bytes.
void PutRecord(char* at, RecordShape shape, std::span<const Value> values);

/// A record's values, found when they are asked for. Good as long as its bytes.
class RecordView {
 public:
  RecordView() = default;
  /// @throws DatabaseError kMalformed if the offsets don't fit in the record
  explicit RecordView(std::string_view bytes);

  /// NULL for a column after the last. @throws DatabaseError kMalformed for a wild offset
  [[nodiscard]] Value Column(std::size_t column) const;

 private:
  [[nodiscard]] std::size_t Offset(std::size_t index) const;

  std::string_view bytes_;
  std::size_t width_ = 1;
  std::size_t columns_ = 0;
};

/// Adds a column of an index entry: its text, marked and ended so that entries sort as rows do.
void AppendIndexText(std::string& key, Value text);
/// Ends an index entry with the number of its row.
void AppendRowKey(std::string& key, RowId rowId);

}  // namespace lexmill::platform::sqlite
