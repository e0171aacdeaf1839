// SPDX-License-Identifier: MIT
#include "platform/sqlite/untranslated_rows.h"

#include "platform/sqlite/database_error.h"

namespace lexmill::platform::sqlite {

UntranslatedRows::UntranslatedRows(Database& database, const Table& table, const Columns& columns)
    : columns_(columns) {
  for (TableCursor cursor(database, table); cursor.Next();) {
    const FiveValues values = ValuesOf(cursor);
    if (values[kMiddle]) {
      byKey_.Add(HashOf(*values[kMiddle]));
      sources_.push_back({cursor.CurrentRowId(), packed_.Add(values)});
    }
  }
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
