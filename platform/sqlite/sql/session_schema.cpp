// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <optional>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/sql/session.h"
#include "platform/sqlite/sql/sql_token.h"
#include "platform/sqlite/sql/statement_text.h"

namespace lexmill::platform::sqlite {
namespace {

using Action = SchemaStatement::Action;

struct TransactionVerb {
  std::string_view verb;
  Action action;
};

constexpr std::array<TransactionVerb, 4> kTransactionVerbs = {{{"BEGIN", Action::Begin},
                                                               {"COMMIT", Action::Commit},
                                                               {"END", Action::Commit},
                                                               {"ROLLBACK", Action::Rollback}}};

/// Takes the first token of `text`, and the blanks behind it, off `text`.
std::string_view TakeWord(std::string_view& text) {
  const std::string_view word = LeadingWord(text);
  text = SkipBlanks(text.substr(word.size()));
  return word;
}

/// The action of `BEGIN`, `COMMIT`, `END` or `ROLLBACK`, alone or with `TRANSACTION`: such
/// statements need no compiler.
std::optional<Action> ReadPlainTransaction(std::string_view text) {
  const std::string_view verb = TakeWord(text);
  if (IsKeyword(LeadingWord(text), "TRANSACTION")) {
    TakeWord(text);
  }
  for (const TransactionVerb& known : kTransactionVerbs) {
    if (text.empty() && IsKeyword(verb, known.verb)) {
      return known.action;
    }
  }
  return std::nullopt;
}

/// Whether a CREATE statement says IF NOT EXISTS.
bool HasCondition(std::string_view create) {
  constexpr int kWordsBefore = 4;  // CREATE UNIQUE INDEX IF
  for (int i = 0; i < kWordsBefore; ++i) {
    if (IsKeyword(TakeWord(create), "IF")) {
      return true;
    }
  }
  return false;
}

bool HasObject(Database& database, std::string_view name) {
  return std::ranges::any_of(database.Objects(), [name](const CatalogObject& object) {
    return SameName(object.name, name);
  });
}

}  // namespace

/// Carries out a statement about objects or transactions.
/// @param text  from its first token to its last
void Session::RunSchemaStatement(std::string_view text) {
  if (const auto action = ReadPlainTransaction(text)) {
    RunTransaction(*action);
    return;
  }
  SchemaStatement statement;
  {
    Statement frame(database_, Statement::Access::Read);
    schema_.Follow(database_);
    statement = schema_.Compile(text);
    frame.Complete();
  }
  switch (statement.action) {
    case Action::Nothing:
      break;
    case Action::Create:
      Create(statement, text);
      break;
    case Action::Drop:
      Drop(statement, text);
      break;
    default:
      RunTransaction(statement.action);
      break;
  }
}

void Session::RunTransaction(Action action) {
  const bool isOpen = database_.InTransaction();
  if (action == Action::Begin) {
    if (isOpen) {
      throw DatabaseError("cannot start a transaction within a transaction");
    }
    database_.Begin();
    return;
  }
  const bool keeps = action == Action::Commit;
  if (!isOpen) {
    throw DatabaseError(keeps ? "cannot commit - no transaction is active"
                              : "cannot rollback - no transaction is active");
  }
  if (keeps) {
    database_.Commit();
  } else {
    database_.Rollback();
  }
}

void Session::Create(const SchemaStatement& statement, std::string_view text) {
  Statement frame(database_, Statement::Access::Write);
  const bool isConditional = HasCondition(text);
  if (isConditional && HasObject(database_, statement.name)) {
    return;
  }
  const bool isKept = !statement.isSelection && !isConditional;
  const std::string sql = isKept ? std::string(text) : schema_.KeptText(text);
  if (statement.type == "table") {
    CreateTable(statement, sql, text);
  } else if (statement.type == "index") {
    database_.CreateIndex(statement.name, statement.table, sql);
  } else {
    database_.CreateOther(statement.type, statement.name, statement.name, sql);
  }
  frame.Complete();
  schema_.Accept(sql, database_.SchemaVersion());
}

void Session::CreateTable(const SchemaStatement& statement, const std::string& sql,
                          std::string_view text) {
  database_.CreateTable(statement.name, sql);
  if (statement.isSelection) {
    engine_.RunInside("INSERT INTO " + QuoteName(statement.name) + std::string(SelectionOf(text)));
  }
}

void Session::Drop(const SchemaStatement& statement, std::string_view text) {
  Statement frame(database_, Statement::Access::Write);
  if (statement.type == "table") {
    database_.DropTable(statement.name);
  } else if (statement.type == "index") {
    database_.DropIndex(statement.name);
  } else {
    database_.DropOther(statement.type, statement.name);
  }
  frame.Complete();
  schema_.Accept(text, database_.SchemaVersion());
}

}  // namespace lexmill::platform::sqlite
