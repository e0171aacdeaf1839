// SPDX-License-Identifier: MIT
#include "platform/sqlite/sql/row_store.h"

#include "platform/sqlite/database_error.h"

namespace lexmill::platform::sqlite {

void RowStore::Add(const TableCursor& cursor, std::span<const Value> values) {
  // Once a row has only its place, all later ones do, so a number shows which list it is in.
  const std::uint32_t packed = places_.empty() ? packed_.Add(values) : PackedRows::kNoPlace;
  if (packed != PackedRows::kNoPlace) {
    packedPlaces_.push_back(packed);
    return;
  }
  const RowPlace place = cursor.CurrentPlace();
  if (place == 0) {
    throw DatabaseError("database is too large");
  }
  places_.push_back(place);
}

void RowStore::Read(std::uint32_t number, TableCursor& cursor, std::span<Value> values) const {
  if (number < packedPlaces_.size()) {
    packed_.Read(packedPlaces_[number], values);
    return;
  }
  cursor.SeekPlace(places_[number - packedPlaces_.size()]);
  ReadCurrent(cursor, values);
}

void RowStore::ReadCurrent(const TableCursor& cursor, std::span<Value> values) const {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    values[i] = cursor.Column(columns_[i]);
  }
}

}  // namespace lexmill::platform::sqlite
