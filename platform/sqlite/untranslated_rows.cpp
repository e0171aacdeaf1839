// SPDX-License-Identifier: MIT
#include "platform/sqlite/untranslated_rows.h"

#include "platform/sqlite/database_error.h"

namespace lexmill::platform::sqlite {
namespace {

/// The hash of a row's values but for its key.
std::uint32_t HashOfRest(const FiveValues& values) {
  constexpr std::uint32_t kFactor = 0x9E3779B1;
  std::uint32_t hash = 0;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (i != kMiddle) {
      hash = hash * kFactor + (values[i] ? HashOf(*values[i]) : 1);
    }
  }
  return hash;
}

bool IsRestEqual(const FiveValues& left, FiveValues right) {
  right[kMiddle] = left[kMiddle];
  return left == right;
}

}  // namespace

UntranslatedRows::UntranslatedRows(Database& database, const Table& table, const Columns& columns)
    : columns_(columns) {
  HashChains byRest;
  TableCursor earlier(database, table);
  for (TableCursor cursor(database, table); cursor.Next();) {
    const FiveValues values = ValuesOf(cursor);
    if (!values[kMiddle]) {
      continue;
    }
    const std::uint32_t hash = HashOfRest(values);
    if (const auto key = KeyOfTwin(values, byRest, hash, earlier)) {
      hasTwins_ = hasTwins_ || *key != values[kMiddle];
      continue;
    }
    byRest.Add(hash);
    byKey_.Add(HashOf(*values[kMiddle]));
    sources_.push_back({cursor.CurrentRowId(), packed_.Add(values)});
  }
}

std::optional<Value> UntranslatedRows::KeyOfTwin(const FiveValues& values, const HashChains& byRest,
                                                 std::uint32_t hash, TableCursor& cursor) const {
  for (std::uint32_t number = byRest.First(hash); number != HashChains::kNone;
       number = byRest.Next(number)) {
    const FiveValues earlier = Values(number, cursor);
    if (IsRestEqual(values, earlier)) {
      return earlier[kMiddle];
    }
  }
  return std::nullopt;
}

FiveValues UntranslatedRows::Values(std::uint32_t number, TableCursor& cursor) const {
  const Source& source = sources_[number];
  if (source.place == PackedRows::kNoPlace) {
    if (!cursor.Seek(source.rowId)) {
      throw DatabaseError(kMalformed);
    }
    return ValuesOf(cursor);
  }
  FiveValues values;
  packed_.Read(source.place, values);
  return values;
}

FiveValues UntranslatedRows::ValuesOf(const TableCursor& cursor) const {
  FiveValues values;
  for (std::size_t i = 0; i < values.size(); ++i) {
    values[i] = cursor.Column(columns_[i]);
  }
  return values;
}

}  // namespace lexmill::platform::sqlite
