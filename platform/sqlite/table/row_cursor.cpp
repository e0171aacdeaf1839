// SPDX-License-Identifier: MIT
#include "platform/sqlite/table/row_cursor.h"

#include <limits>

#include "platform/sqlite/database_error.h"

namespace lexmill::platform::sqlite {
namespace {

constexpr RowId kGreatestRowId = std::numeric_limits<RowId>::max();
/// Cells stand at multiples of 4 bytes.
constexpr RowPlace kCellPlaces = kPageSize / 4;
constexpr std::size_t kRowKeySize = RowKey{}.size();

std::string_view View(const RowKey& key) {
  return {key.data(), key.size()};
}

}  // namespace

bool RowCursor::Next() {
  const std::optional<RowId> before = last_;
  if (!FindNext()) {
    return false;
  }
  Load();
  if (before && *last_ <= *before) {
    throw DatabaseError(kMalformed);
  }
  return true;
}

bool RowCursor::FindNext() {
  if (!last_) {
    return tree_.First();
  }
  if (!tree_.IsStale()) {
    return tree_.Next();
  }
  return *last_ != kGreatestRowId && tree_.SeekAtLeast(View(ToRowKey(*last_ + 1)));
}

bool RowCursor::Seek(RowId rowId) {
  const RowKey key = ToRowKey(rowId);
  if (!tree_.SeekAtLeast(View(key))) {
    return false;
  }
  const CellView cell = tree_.Cell();
  if (cell.KeyLength() != kRowKeySize || ToRowId(cell.Payload()) != rowId) {
    return false;
  }
  Load();
  return true;
}

RowPlace RowCursor::CurrentPlace() const {
  const PageNumber page = tree_.CurrentPage();
  const bool isBeyond = page > std::numeric_limits<RowPlace>::max() / kCellPlaces;
  return isBeyond ? 0 : page * kCellPlaces + static_cast<RowPlace>(tree_.CellOffset() / 4);
}

void RowCursor::SeekPlace(RowPlace place) {
  tree_.GoTo(place / kCellPlaces, place % kCellPlaces * std::size_t{4});
  Load();
}

void RowCursor::Load() {
  const CellView cell = tree_.Cell();
  if (cell.KeyLength() != kRowKeySize) {
    throw DatabaseError(kMalformed);
  }
  last_ = ToRowId(cell.Payload());
  record_ = RecordView(tree_.Payload(overflow_).substr(kRowKeySize));
}

RowId RowIdOfEntry(std::string_view key) {
  if (key.size() < kRowKeySize) {
    throw DatabaseError(kMalformed);
  }
  return ToRowId(key.data() + key.size() - kRowKeySize);
}

void EntryCursor::Seek(std::string_view text) {
  prefix_.clear();
  AppendIndexText(prefix_, text);
  last_.reset();
  isAtEnd_ = false;
}

std::optional<RowId> EntryCursor::Next() {
  if (isAtEnd_ || !FindNext()) {
    isAtEnd_ = true;
    return std::nullopt;
  }
  const std::string_view key = tree_.Payload(overflow_);
  if (!key.starts_with(prefix_) || key.size() != prefix_.size() + kRowKeySize) {
    isAtEnd_ = true;
    return std::nullopt;
  }
  last_ = RowIdOfEntry(key);
  return last_;
}

bool EntryCursor::FindNext() {
  if (!last_) {
    return tree_.SeekAtLeast(prefix_);
  }
  if (!tree_.IsStale()) {
    return tree_.Next();
  }
  if (*last_ == kGreatestRowId) {
    return false;
  }
  std::string next = prefix_;
  AppendRowKey(next, *last_ + 1);
  return tree_.SeekAtLeast(next);
}

}  // namespace lexmill::platform::sqlite
