// SPDX-License-Identifier: MIT
#include "platform/sqlite/sql/untranslated_rows.h"

namespace lexmill::platform::sqlite {
namespace {

constexpr std::size_t kMegabytes = 12;

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
    : rows_(columns, kMegabytes) {
  HashChains byRest;
  TableCursor earlier(database, table);
  for (TableCursor cursor(database, table); cursor.Next();) {
    FiveValues values;
    rows_.ReadCurrent(cursor, values);
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
    rows_.Add(cursor, values);
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
  FiveValues values;
  rows_.Read(number, cursor, values);
  return values;
}

}  // namespace lexmill::platform::sqlite
