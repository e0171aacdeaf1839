// SPDX-License-Identifier: MIT
#include "platform/sqlite/sql/session.h"

#include <algorithm>
#include <array>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/sql/plain_join.h"
#include "platform/sqlite/sql/plain_listing.h"
#include "platform/sqlite/sql/sql_token.h"
#include "platform/sqlite/sql/statement_text.h"
#include "platform/sqlite/sql/table_module.h"

namespace lexmill::platform::sqlite {
namespace {

/// A longer value is written at once, so that a row that becomes too long is told where it happens.
constexpr std::size_t kLongestCollectedValue = 4096;

constexpr std::array<std::string_view, 6> kSchemaVerbs = {"BEGIN",    "COMMIT", "END",
                                                          "ROLLBACK", "CREATE", "DROP"};
/// The verbs that libsqlite3 may carry out on a connection of its own.
constexpr std::array<std::string_view, 8> kEngineVerbs = {"SELECT",  "INSERT",  "UPDATE", "DELETE",
                                                          "REPLACE", "EXPLAIN", "PRAGMA", "VACUUM"};

/// libsqlite3 would look at its own database in place of the file.
void RefuseCheck(std::string_view pragma) {
  const std::string_view word = LeadingWord(SkipBlanks(pragma));
  if (IsKeyword(word, "INTEGRITY_CHECK") || IsKeyword(word, "QUICK_CHECK")) {
    throw DatabaseError("PRAGMA " + std::string(word) + " is not supported");
  }
}

}  // namespace

void Session::Run(std::string_view text) {
  StatementScanner scanner;
  while (!text.empty()) {
    std::size_t length = RunPlainInsert(text);
    if (length == 0) {
      length = std::min(scanner.ReadStatement(text), text.size());
      RunStatement(text.substr(0, length));
    }
    text = SkipBlanks(text.substr(length));
  }
}

/// The table of that name if plain statements may write it.
const Table* Session::PlainTarget(std::string_view name) {
  const std::uint64_t version = database_.SchemaVersion();
  if (target_.version != version || target_.name != name) {
    target_ = {std::string(name), version, database_.FindTable(name)};
    if (target_.table != nullptr &&
        (target_.table->rowIdColumn || HasTrigger(database_, *target_.table))) {
      target_.table = nullptr;
    }
  }
  return target_.table;
}

bool Session::Insert(const PlainInsert& insert) {
  if (!database_.InTransaction()) {
    return false;  // a transaction of its own costs more than to compile the statement
  }
  const Table* table = PlainTarget(insert.Table());
  if (table == nullptr || table->columns.size() != insert.Values().size()) {
    return false;
  }
  database_.Append(*table, insert.Values());
  return true;
}

/// Adds the row of a plain INSERT at the start of `text`. @return its length; 0 if there is none
std::size_t Session::RunPlainInsert(std::string_view text) {
  const std::size_t length = insert_.Read(text);
  return length > 0 && Insert(insert_) ? length : 0;
}

bool Session::Collect(std::string_view text) {
  text = TrimBlanksAtEnd(text);
  if (!database_.InTransaction() || update_.Read(text) != text.size() || text.empty() ||
      update_.Value().size() > kLongestCollectedValue) {
    return false;
  }
  const Table* table = PlainTarget(update_.Table());
  if (table == nullptr) {
    return false;
  }
  const std::optional<std::size_t> key = FindColumn(*table, update_.KeyColumn());
  const std::optional<std::size_t> value = FindColumn(*table, update_.ValueColumn());
  if (!key || !value || !Database::CanUpdateWhere(*table, *key, *value)) {
    return false;
  }
  database_.UpdateWhere(*table, *key, *value, update_.Key(), update_.Value());
  hasCollected_ = true;
  return true;
}

void Session::Settle() {
  if (hasCollected_) {
    hasCollected_ = false;
    Statement(database_, Statement::Access::Read).Complete();
  }
}

void Session::RunStatement(std::string_view text) {
  text = StatementBody(text);
  std::string withoutNul;
  if (text.find('\0') != std::string_view::npos) {
    withoutNul = WithoutNulBytes(text);
    text = withoutNul;
  }
  const std::string_view verb = LeadingWord(text);
  if (text.empty() || text == ";") {
    return;
  }
  if (IsKeyword(verb, kSchemaVerbs)) {
    RunSchemaStatement(text);
    return;
  }
  if (!verb.empty() && !IsKeyword(verb, kEngineVerbs)) {
    throw DatabaseError("near \"" + std::string(verb) + "\": syntax error");
  }
  if (IsKeyword(verb, "PRAGMA")) {
    RefuseCheck(text.substr(verb.size()));
  }
  if (!RunPlainQuery(text)) {
    engine_.Run(text);
  }
}

/// Runs a query of a fixed form on tables that suit it. @return false if it isn't one
bool Session::RunPlainQuery(std::string_view text) {
  if (const auto listing = ReadPlainListing(text)) {
    Statement frame(database_, Statement::Access::Read);
    const bool isDone = PrintListing(database_, *listing, rows_);
    frame.Complete();
    return isDone;
  }
  if (const auto join = ReadPlainJoin(text)) {
    Statement frame(database_, Statement::Access::Read);
    const bool isDone = PrintJoin(database_, *join, rows_);
    frame.Complete();
    return isDone;
  }
  return false;
}

}  // namespace lexmill::platform::sqlite
