// SPDX-License-Identifier: MIT
#include "platform/sqlite/sql/refusals.h"

#include <algorithm>
#include <string>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/sql/sql_token.h"

namespace lexmill::platform::sqlite {
namespace {

struct Refusal {
  std::string_view words;      ///< with which the statement begins; `*` is any token
  std::string_view what = {};  ///< as the message names it; if empty, by its words
};

/// docs/formats/database-file.md has the same list for users.
constexpr Refusal kRefusals[] = {
    {"ATTACH"},
    {"COPY"},
    {"CREATE INDEX IF", "IF NOT EXISTS"},
    {"CREATE TABLE IF", "IF NOT EXISTS"},
    {"CREATE TABLE * AS", "CREATE TABLE AS SELECT"},
    {"CREATE TEMP"},
    {"CREATE TEMPORARY"},
    {"CREATE TRIGGER"},
    {"CREATE UNIQUE", "CREATE UNIQUE INDEX"},
    {"CREATE VIEW"},
    {"CREATE VIRTUAL", "CREATE VIRTUAL TABLE"},
    {"DELETE"},
    {"DETACH"},
    {"DROP"},
    {"EXPLAIN"},
    {"PRAGMA"},
    {"REPLACE"},
    {"VACUUM"},
};

bool BeginsWith(std::string_view statement, std::string_view words) {
  while (!words.empty()) {
    if (statement.empty()) {
      return false;
    }
    const std::string_view word = words.substr(0, words.find(' '));
    const std::string_view token = statement.substr(0, ReadToken(statement).length);
    if (word != "*" && !IsKeyword(token, word)) {
      return false;
    }
    words.remove_prefix(std::min(word.size() + 1, words.size()));
    statement = SkipBlanks(statement.substr(token.size()));
  }
  return true;
}

bool HasTrigger(Database& database, const Table& table) {
  return std::ranges::any_of(database.Objects(), [&table](const CatalogObject& object) {
    return object.type == "trigger" && SameName(object.tableName, table.name);
  });
}

}  // namespace

void CheckSupported(std::string_view statement) {
  for (const Refusal& refusal : kRefusals) {
    if (BeginsWith(statement, refusal.words)) {
      const std::string what(refusal.what.empty() ? refusal.words : refusal.what);
      throw DatabaseError(what + " is not supported");
    }
  }
}

std::string_view WhyReadOnly(Database& database, const Table& table) {
  if (HasTrigger(database, table)) {
    return "has a trigger";
  }
  return HasUniqueKey(table) ? "has a unique key" : "";
}

bool HasUniqueKey(const Table& table) {
  return table.rowIdColumn || std::ranges::any_of(table.indexes, &Index::isUnique);
}

}  // namespace lexmill::platform::sqlite
