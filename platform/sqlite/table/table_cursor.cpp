// SPDX-License-Identifier: MIT
#include "platform/sqlite/table/table_cursor.h"

#include <limits>
#include <utility>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/table/database.h"

namespace lexmill::platform::sqlite {
namespace {

/// Cells begin at multiples of 4 bytes.
constexpr RowPlace kCellPlaces = kPageSize / 4;
constexpr std::size_t kRowKeySize = RowKey{}.size();

}  // namespace

TableCursor::TableCursor(Database& database, const Table& table)
    : TableCursor(database.file_.Pages(), table.rootPage) {}

bool TableCursor::Next() {
  const std::optional<RowId> before = last_;
  if (!(before ? tree_.Next() : tree_.First())) {
    return false;
  }
  Load();
  if (before && *last_ <= *before) {
    throw DatabaseError(kMalformed);
  }
  return true;
}

bool TableCursor::Seek(RowId rowId) {
  const RowKey key = ToRowKey(rowId);
  if (!tree_.SeekAtLeast({key.data(), key.size()})) {
    return false;
  }
  const CellView cell = tree_.Cell();
  if (cell.KeyLength() != kRowKeySize || ToRowId(cell.Payload()) != rowId) {
    return false;
  }
  Load();
  return true;
}

RowPlace TableCursor::CurrentPlace() const {
  const PageNumber page = tree_.CurrentPage();
  const bool isBeyond = page > std::numeric_limits<RowPlace>::max() / kCellPlaces;
  return isBeyond ? 0 : page * kCellPlaces + static_cast<RowPlace>(tree_.CellOffset() / 4);
}

void TableCursor::SeekPlace(RowPlace place) {
  tree_.GoTo(place / kCellPlaces, place % kCellPlaces * std::size_t{4});
  Load();
}

void TableCursor::Load() {
  const CellView cell = tree_.Cell();
  if (cell.KeyLength() != kRowKeySize) {
    throw DatabaseError(kMalformed);
  }
  last_ = ToRowId(cell.Payload());
  record_ = RecordView(tree_.Payload(overflow_).substr(kRowKeySize));
}

IndexCursor::IndexCursor(Database& database, const Index& index)
    : IndexCursor(database.file_.Pages(), index.rootPage) {}

void IndexCursor::Seek(std::string_view text) {
  prefix_.clear();
  AppendIndexText(prefix_, text);
  isFirst_ = true;
  isAtEnd_ = false;
}

std::optional<RowId> IndexCursor::Next() {
  if (isAtEnd_ || !FindNext()) {
    isAtEnd_ = true;
    return std::nullopt;
  }
  const std::string_view key = tree_.Payload(overflow_);
  if (!key.starts_with(prefix_) || key.size() != prefix_.size() + kRowKeySize) {
    isAtEnd_ = true;
    return std::nullopt;
  }
  return RowIdOfEntry(key);
}

bool IndexCursor::FindNext() {
  return std::exchange(isFirst_, false) ? tree_.SeekAtLeast(prefix_) : tree_.Next();
}

RowId RowIdOfEntry(std::string_view key) {
  if (key.size() < kRowKeySize) {
    throw DatabaseError(kMalformed);
  }
  return ToRowId(key.data() + key.size() - kRowKeySize);
}

}  // namespace lexmill::platform::sqlite
