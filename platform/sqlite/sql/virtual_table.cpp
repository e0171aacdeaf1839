// SPDX-License-Identifier: MIT
// How libsqlite3 reads a table. Before a query it asks for a plan (BestIndex): which of the query's
// conditions the table can look up for itself, and what that costs. It then opens cursors; each
// scan of one begins with Filter, which gets the plan and the values of those conditions, and goes
// on with Next until IsAtEnd. All conditions are checked again by libsqlite3, so a plan may give
// too many rows, but never too few.
//
// Rows always come in the order of their numbers: a scan is in that order, and so are the entries
// of an index with equal texts.
#include <memory>
#include <optional>
#include <string_view>

#include "platform/sqlite/sql/virtual_table.h"
#include "platform/sqlite/table/table_cursor.h"

namespace lexmill::platform::sqlite {
namespace {

/// How a cursor finds its rows: the number that libsqlite3 hands on from BestIndex to Filter. From
/// kByIndex on it is kByIndex plus a column's position.
enum Plan : int { kAllRows, kByRowId, kByIndex };

struct VirtualCursor : sqlite3_vtab_cursor {
  explicit VirtualCursor(VirtualTable& of)
      : sqlite3_vtab_cursor(), rows(of.context.database, of.table), table(of.table) {}

  TableCursor rows;
  const Table& table;
  std::optional<IndexCursor> found;
  int plan = kAllRows;
  bool isAtEnd = false;
};

VirtualCursor& CursorOf(sqlite3_vtab_cursor* cursor) {
  return *static_cast<VirtualCursor*>(cursor);
}

/// The plan that an equality on `column` makes possible; kAllRows if none. A column below 0 is the
/// row's number.
int PlanFor(const Table& table, int column) {
  if (column < 0 || table.rowIdColumn == static_cast<std::size_t>(column)) {
    return kByRowId;
  }
  const bool isIndexed = table.IndexOn(static_cast<std::size_t>(column)) != nullptr;
  return isIndexed ? kByIndex + column : kAllRows;
}

int BestIndex(sqlite3_vtab* base, sqlite3_index_info* info) {
  // Only how they compare matters, and that a search costs the same whatever the column: the order
  // of the tables is fixed already.
  constexpr double kScanCost = 1e6;
  constexpr double kSearchCost = 20;
  constexpr sqlite3_int64 kFoundRows = 5;
  info->estimatedCost = kScanCost;
  for (int i = 0; i < info->nConstraint; ++i) {
    const auto& constraint = info->aConstraint[i];
    const int plan = PlanFor(TableOf(base).table, constraint.iColumn);
    // An index has texts byte by byte, which serves no other way to compare.
    if (constraint.usable != 0 && constraint.op == SQLITE_INDEX_CONSTRAINT_EQ && plan != kAllRows &&
        sqlite3_stricmp(sqlite3_vtab_collation(info, i), "BINARY") == 0) {
      info->idxNum = plan;
      info->aConstraintUsage[i].argvIndex = 1;
      info->estimatedCost = kSearchCost;
      info->estimatedRows = kFoundRows;
      break;
    }
  }
  return SQLITE_OK;
}

int Open(sqlite3_vtab* table, sqlite3_vtab_cursor** result) {
  return Guarded(table->zErrMsg,
                 [&] { *result = std::make_unique<VirtualCursor>(TableOf(table)).release(); });
}

int Close(sqlite3_vtab_cursor* cursor) {
  const std::unique_ptr<VirtualCursor> owned(&CursorOf(cursor));
  return SQLITE_OK;
}

/// Goes to the next row that the index names. There has to be one.
bool NextFound(VirtualCursor& cursor) {
  const std::optional<RowId> rowId = cursor.found->Next();
  if (rowId && !cursor.rows.Seek(*rowId)) {
    throw DatabaseError(kMalformed);
  }
  return rowId.has_value();
}

bool SeekRowId(VirtualCursor& cursor, sqlite3_value* value) {
  // A number beyond the 32 bits of a row's number must not meet one that is cut to them.
  const sqlite3_int64 number = sqlite3_value_int64(value);
  const auto rowId = static_cast<RowId>(number);
  return rowId == number && sqlite3_value_numeric_type(value) != SQLITE_NULL &&
         cursor.rows.Seek(rowId);
}

bool SeekText(VirtualCursor& cursor, sqlite3_value* value) {
  const void* bytes = sqlite3_value_text(value);
  if (bytes == nullptr) {
    return false;  // NULL equals nothing
  }
  const std::string_view text(static_cast<const char*>(bytes),
                              static_cast<std::size_t>(sqlite3_value_bytes(value)));
  const auto column = static_cast<std::size_t>(cursor.plan - kByIndex);
  cursor.found.emplace(TableOf(cursor.pVtab).context.database, *cursor.table.IndexOn(column));
  cursor.found->Seek(text);
  return NextFound(cursor);
}

int Filter(sqlite3_vtab_cursor* base, int plan, const char*, int, sqlite3_value** values) {
  return Guarded(base->pVtab->zErrMsg, [&] {
    VirtualCursor& cursor = CursorOf(base);
    cursor.plan = plan;
    cursor.rows.Rewind();  // a cursor of an inner table is filtered once for each outer row
    const bool isThere = plan == kAllRows   ? cursor.rows.Next()
                         : plan == kByRowId ? SeekRowId(cursor, values[0])
                                            : SeekText(cursor, values[0]);
    cursor.isAtEnd = !isThere;
  });
}

int Next(sqlite3_vtab_cursor* base) {
  return Guarded(base->pVtab->zErrMsg, [&] {
    VirtualCursor& cursor = CursorOf(base);
    const bool isThere = cursor.plan == kAllRows   ? cursor.rows.Next()
                         : cursor.plan == kByRowId ? false
                                                   : NextFound(cursor);
    cursor.isAtEnd = !isThere;
  });
}

int IsAtEnd(sqlite3_vtab_cursor* cursor) {
  return CursorOf(cursor).isAtEnd ? 1 : 0;
}

int GiveColumn(sqlite3_vtab_cursor* base, sqlite3_context* result, int number) {
  return Guarded(base->pVtab->zErrMsg, [&] {
    const VirtualCursor& cursor = CursorOf(base);
    const auto column = static_cast<std::size_t>(number);
    const Value value = cursor.rows.Column(column);
    if (cursor.table.rowIdColumn == column) {
      sqlite3_result_int64(result, cursor.rows.CurrentRowId());
    } else if (value) {  // else NULL, as the result is at first
      sqlite3_result_text64(result, value->data(), value->size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    }
  });
}

int GiveRowId(sqlite3_vtab_cursor* cursor, sqlite3_int64* rowId) {
  *rowId = CursorOf(cursor).rows.CurrentRowId();
  return SQLITE_OK;
}

}  // namespace

void AddReading(sqlite3_module& module) {
  module.xBestIndex = &BestIndex;
  module.xOpen = &Open;
  module.xClose = &Close;
  module.xFilter = &Filter;
  module.xNext = &Next;
  module.xEof = &IsAtEnd;
  module.xColumn = &GiveColumn;
  module.xRowid = &GiveRowId;
}

}  // namespace lexmill::platform::sqlite
