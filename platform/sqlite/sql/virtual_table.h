// SPDX-License-Identifier: MIT
// platform/sqlite/sql: what the parts of the table module share.
#pragma once

#include <sqlite3.h>

#include <new>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/database_error.h"
#include "platform/sqlite/sql/table_module.h"

namespace lexmill::platform::sqlite {

/// A table as libsqlite3 knows it. It hands back what it got, as a pointer to the base.
struct VirtualTable : sqlite3_vtab {
  VirtualTable(TableModule::Context& use, const Table& of)
      : sqlite3_vtab(), context(use), table(of) {}

  TableModule::Context& context;
  const Table& table;
};

[[nodiscard]] inline VirtualTable& TableOf(sqlite3_vtab* table) {
  return *static_cast<VirtualTable*>(table);
}

/// Runs `body` for libsqlite3, through which no exception may pass.
/// @param message  gets the text of a failure
/// @return a result code
template <typename Body>
[[nodiscard]] int Guarded(char*& message, Body body) {
  try {
    body();
    return SQLITE_OK;
  } catch (const DatabaseError& failure) {
    sqlite3_free(message);
    message = sqlite3_mprintf("%s", failure.Text().c_str());
    return ResultCodeOf(failure);
  } catch (const std::bad_alloc&) {
    return SQLITE_NOMEM;
  }
}

/// Puts the routines that read rows into the module.
void AddReading(sqlite3_module& module);

}  // namespace lexmill::platform::sqlite
