// SPDX-License-Identifier: MIT
// The verb of a statement says what runs it:
//
//   BEGIN, COMMIT, END, ROLLBACK   the database
//   CREATE TABLE, CREATE INDEX     libsqlite3 reads the statement, the database keeps it
//   INSERT, UPDATE                 one form of each is known; any spelling of it is brought to the
//                                  one that scripts have
//   SELECT                         libsqlite3, or this program itself where it has a faster way
//
// Long scripts don't come here for each of their statements: Insert and Collect take the values of
// a plain statement, which go to the table without a frame of their own while a transaction is
// open.
#include "platform/sqlite/sql/session.h"

#include <algorithm>
#include <optional>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/sql/create_statement.h"
#include "platform/sqlite/sql/plain_join.h"
#include "platform/sqlite/sql/plain_listing.h"
#include "platform/sqlite/sql/refusals.h"
#include "platform/sqlite/sql/sql_token.h"
#include "platform/sqlite/sql/statement_scanner.h"
#include "platform/sqlite/sql/statement_text.h"

namespace lexmill::platform::sqlite {
namespace {

/// A longer value is written at once, so that a row that becomes too long is reported where it
/// happens.
constexpr std::size_t kLongestCollectedValue = 4096;

DatabaseError SyntaxError(std::string_view text) {
  const std::string_view token = text.substr(0, ReadToken(text).length);
  return DatabaseError("near \"" + std::string(token) + "\": syntax error");
}

/// The columns that an update of many rows takes.
struct UpdateColumns {
  std::size_t key;
  std::size_t value;
};

/// @return none if there are no such columns, or not of that kind
std::optional<UpdateColumns> FindUpdateColumns(const Table& table, const PlainUpdate& update) {
  const std::optional<std::size_t> key = table.FindColumn(update.KeyColumn());
  const std::optional<std::size_t> value = table.FindColumn(update.ValueColumn());
  if (!key || !value || !Database::CanUpdateWhere(table, *key, *value)) {
    return std::nullopt;
  }
  return UpdateColumns{*key, *value};
}

}  // namespace

/// Nothing but TRANSACTION and a name may follow the verb.
template <void (Database::*kStep)()>
void Session::RunTransaction(std::string_view text) {
  const auto skipWord = [&text] { text = SkipBlanks(text.substr(LeadingWord(text).size())); };
  skipWord();
  if (IsKeyword(LeadingWord(text), "TRANSACTION")) {
    skipWord();
    skipWord();
  }
  if (!text.empty()) {
    throw SyntaxError(text);
  }
  (database_.*kStep)();
}

const Session::Verb Session::kVerbs[] = {
    {"BEGIN", &Session::RunTransaction<&Database::Begin>},
    {"COMMIT", &Session::RunTransaction<&Database::Commit>},
    {"END", &Session::RunTransaction<&Database::Commit>},
    {"ROLLBACK", &Session::RunTransaction<&Database::Rollback>},
    {"CREATE", &Session::RunCreate},
    {"INSERT", &Session::RunInsert},
    {"UPDATE", &Session::RunUpdate},
    {"SELECT", &Session::RunSelect}};

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

/// The table of that name if rows of it can be written; the last one is remembered.
const Table* Session::WritableTable(std::string_view name) {
  const std::uint64_t version = database_.SchemaVersion();
  if (target_.version != version || target_.name != name) {
    const Table* table = database_.FindTable(name);
    const bool isWritable = table != nullptr && WhyReadOnly(database_, *table).empty();
    target_ = {std::string(name), version, isWritable ? table : nullptr};
  }
  return target_.table;
}

/// The same, but says what is wrong.
const Table& Session::CheckWritable(std::string_view name) {
  if (SameName(name, "sqlite_master")) {
    throw DatabaseError("table sqlite_master may not be modified");
  }
  const Table* table = database_.FindTable(name);
  if (table == nullptr) {
    throw DatabaseError("no such table: " + std::string(name));
  }
  const std::string_view why = WhyReadOnly(database_, *table);
  if (!why.empty()) {
    throw DatabaseError("table " + table->name + " " + std::string(why) + ": it can only be read");
  }
  return *table;
}

bool Session::Insert(const PlainInsert& insert) {
  if (!database_.InTransaction()) {
    return false;  // needs a frame of its own
  }
  const Table* table = WritableTable(insert.Table());
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
  const Table* table = WritableTable(update_.Table());
  const auto columns = table == nullptr ? std::nullopt : FindUpdateColumns(*table, update_);
  if (!columns) {
    return false;
  }
  database_.UpdateWhere(*table, columns->key, columns->value, update_.Key(), update_.Value());
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
  if (text.empty() || text == ";") {
    return;
  }
  CheckSupported(text);
  const std::string_view word = LeadingWord(text);
  const auto* const verb = std::ranges::find_if(
      kVerbs, [word](const Verb& known) { return IsKeyword(word, known.word); });
  if (verb == std::end(kVerbs)) {
    throw SyntaxError(text);
  }
  (this->*verb->action)(text);
}

void Session::RunCreate(std::string_view text) {
  NewObject object;
  {
    // A statement that is wrong fails before anything is locked for writing.
    const Statement frame(database_, Statement::Access::Read);
    object = UnderstandCreate(database_.Objects(), text);
  }
  Statement frame(database_, Statement::Access::Write);
  if (object.type == "index") {
    database_.CreateIndex(object.name, object.table, text);
  } else {
    database_.CreateTable(object.name, text);
    if (HasUniqueKey(*database_.FindTable(object.name))) {
      throw DatabaseError(kNoUniqueKey);
    }
  }
  frame.Complete();
}

void Session::RunInsert(std::string_view text) {
  const std::string plain = WithPlainSpelling(text);
  if (insert_.Read(plain) != plain.size()) {
    throw DatabaseError(kOnlyPlainInsert);
  }
  Statement frame(database_, Statement::Access::Write);
  const Table& table = CheckWritable(insert_.Table());
  if (table.columns.size() != insert_.Values().size()) {
    throw DatabaseError("table " + table.name + " has " + std::to_string(table.columns.size()) +
                        " columns but " + std::to_string(insert_.Values().size()) +
                        " values were supplied");
  }
  database_.Append(table, insert_.Values());
  frame.Complete();
}

void Session::RunUpdate(std::string_view text) {
  const std::string plain = WithPlainSpelling(text);
  if (update_.Read(plain) != plain.size()) {
    throw DatabaseError(kOnlyPlainUpdate);
  }
  Statement frame(database_, Statement::Access::Write);
  const Table& table = CheckWritable(update_.Table());
  for (const std::string_view name : {update_.KeyColumn(), update_.ValueColumn()}) {
    if (!table.FindColumn(name)) {
      throw DatabaseError("no such column: " + std::string(name));
    }
  }
  const auto columns = FindUpdateColumns(table, update_);
  if (!columns) {
    throw DatabaseError(
        "only text columns without an index can be updated, by another text column");
  }
  database_.UpdateWhere(table, columns->key, columns->value, update_.Key(), update_.Value());
  frame.Complete();
}

void Session::RunSelect(std::string_view text) {
  const auto listing = ReadPlainListing(text);
  const auto join = ReadPlainJoin(text);
  Statement frame(database_, Statement::Access::Read);
  if (!(listing && PrintListing(database_, *listing, rows_)) &&
      !(join && PrintJoin(database_, *join, rows_))) {
    engine_.Run(text);
  }
  frame.Complete();
}

}  // namespace lexmill::platform::sqlite
