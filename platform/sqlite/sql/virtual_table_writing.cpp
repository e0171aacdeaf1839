// SPDX-License-Identifier: MIT
#include <optional>
#include <vector>

#include "platform/sqlite/sql/virtual_table.h"

namespace lexmill::platform::sqlite {
namespace {

/// The row number that a statement names, if it does.
std::optional<RowId> NamedRowId(sqlite3_value* value) {
  if (sqlite3_value_type(value) == SQLITE_NULL) {
    return std::nullopt;
  }
  const sqlite3_int64 number = sqlite3_value_int64(value);
  if (sqlite3_value_numeric_type(value) != SQLITE_INTEGER || number != static_cast<RowId>(number)) {
    throw DatabaseError("datatype mismatch");
  }
  return static_cast<RowId>(number);
}

/// Writes a row: a new one if `old` is none.
RowId WriteRow(Database& database, const Table& table, std::optional<RowId> old,
               std::optional<RowId> wanted, const std::vector<Value>& values) {
  if (!wanted) {
    return database.Append(table, values);
  }
  if (old == wanted) {
    database.Update(table, *wanted, values);
    return *wanted;
  }
  database.Insert(table, *wanted, values);
  if (old) {
    database.Delete(table, *old);
  }
  return *wanted;
}

void CheckWritable(const VirtualTable& table) {
  if (&table.table == &table.context.master) {
    throw DatabaseError("table sqlite_master may not be modified");
  }
  if (table.hasTrigger) {
    throw DatabaseError("triggers are not supported");
  }
}

/// The number that the row is to bear, if the statement says one. `values` as in Update.
std::optional<RowId> WantedRowId(const Table& table, sqlite3_value** values) {
  const std::optional<RowId> kept = NamedRowId(values[1]);
  const std::optional<RowId> set =
      table.rowIdColumn ? NamedRowId(values[*table.rowIdColumn + 2]) : std::nullopt;
  return set ? set : kept;
}

/// The values of a row. libsqlite3 passes NULL for a column that an INSERT leaves out, also where a
/// default value is due.
std::vector<Value> ColumnValues(const VirtualTable& table, sqlite3_value** columns, bool isNew) {
  std::vector<Value> result(table.table.columns.size());
  for (std::size_t i = 0; i < result.size(); ++i) {
    if (table.table.rowIdColumn != i) {
      result[i] = TextOf(columns[i]);
    }
    if (isNew && !result[i] && table.hasDefault[i]) {
      throw DatabaseError("default values are not supported");
    }
  }
  return result;
}

/// libsqlite3's way of writing: one value is the row to delete; more are its old number (NULL for a
/// new row), its new number, and the columns.
int Update(sqlite3_vtab* base, int count, sqlite3_value** values, sqlite3_int64* rowId) {
  return Guarded(base->zErrMsg, [&] {
    const VirtualTable& table = TableOf(base);
    CheckWritable(table);
    const std::optional<RowId> old = NamedRowId(values[0]);
    if (count == 1) {
      table.context.database.Delete(table.table, *old);
      return;
    }
    const std::optional<RowId> wanted = WantedRowId(table.table, values);
    *rowId = WriteRow(table.context.database, table.table, old, wanted,
                      ColumnValues(table, values + 2, !old));
  });
}

}  // namespace

void AddWriting(sqlite3_module& module) {
  module.xUpdate = &Update;
}

}  // namespace lexmill::platform::sqlite
