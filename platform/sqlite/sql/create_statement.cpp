// SPDX-License-Identifier: MIT
#include "platform/sqlite/sql/create_statement.h"

#include <tuple>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/database_error.h"

namespace lexmill::platform::sqlite {
namespace {

std::string TextOf(const char* text) {
  return text == nullptr ? "" : text;
}

/// libsqlite3's authorizer: asked before every step of a statement.
int Note(void* context, int code, const char* first, const char* second, const char* schema,
         const char*) {
  NewObject& object = *static_cast<NewObject*>(context);
  if (TextOf(schema) != "main") {
    return SQLITE_OK;  // a temporary one
  }
  if (code == SQLITE_CREATE_TABLE) {
    object = {"table", TextOf(first), {}};
  } else if (code == SQLITE_CREATE_INDEX && object.type.empty()) {  // else of a key of the table
    object = {"index", TextOf(first), TextOf(second)};
  }
  return SQLITE_OK;
}

/// The failure to compile a statement, in the words of the shell.
DatabaseError Worded(const DatabaseError& failure, const NewObject& object) {
  constexpr std::string_view kNoColumn = "no such column: ";
  if (object.type != "index" || !failure.Text().starts_with(kNoColumn)) {
    return failure;
  }
  return DatabaseError("table " + object.table + " has no column named " +
                       failure.Text().substr(kNoColumn.size()));
}

}  // namespace

NewObject UnderstandCreate(const std::vector<CatalogObject>& objects, std::string_view sql) {
  NewObject result;
  Connection likeness;
  // A name in double quotes that no column bears is a mistake in an index, not a text.
  sqlite3_db_config(likeness.Handle(), SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  for (const CatalogObject& object : objects) {
    likeness.DeclareIfUnderstood(object.sql.value_or(""));
  }
  sqlite3_set_authorizer(likeness.Handle(), &Note, &result);
  try {
    std::ignore = likeness.Compile(sql);
  } catch (const DatabaseError& failure) {
    throw Worded(failure, result);
  }
  if (result.type.empty()) {
    throw DatabaseError("CREATE TEMP is not supported");  // as `temp.t`
  }
  return result;
}

}  // namespace lexmill::platform::sqlite
