// SPDX-License-Identifier: MIT
#include "platform/sqlite/sql/schema_compiler.h"

#include <array>
#include <tuple>

#include "platform/sqlite/database_error.h"

namespace lexmill::platform::sqlite {
namespace {

using Action = SchemaStatement::Action;

/// What libsqlite3 says of a statement while it compiles it.
struct Findings {
  SchemaStatement statement;
  std::string refusal;  ///< what is wrong with a statement that libsqlite3 would carry out
};

struct ObjectCode {
  int code;
  Action action;
  const char* type;
};

constexpr std::array<ObjectCode, 7> kObjectCodes = {{
    {SQLITE_CREATE_TABLE, Action::Create, "table"},
    {SQLITE_CREATE_INDEX, Action::Create, "index"},
    {SQLITE_CREATE_VIEW, Action::Create, "view"},
    {SQLITE_DROP_TABLE, Action::Drop, "table"},
    {SQLITE_DROP_INDEX, Action::Drop, "index"},
    {SQLITE_DROP_VIEW, Action::Drop, "view"},
    {SQLITE_DROP_TRIGGER, Action::Drop, "trigger"},
}};

std::string TextOf(const char* text) {
  return text == nullptr ? "" : text;
}

void NoteTransaction(const std::string& verb, Findings& findings) {
  findings.statement.action = verb == "BEGIN"    ? Action::Begin
                              : verb == "COMMIT" ? Action::Commit
                                                 : Action::Rollback;
}

void NoteRefusal(int code, Findings& findings) {
  switch (code) {
    case SQLITE_CREATE_TEMP_INDEX:
    case SQLITE_CREATE_TEMP_TABLE:
    case SQLITE_CREATE_TEMP_VIEW:
      findings.refusal = "temporary objects are not supported";
      break;
    case SQLITE_CREATE_TRIGGER:
    case SQLITE_CREATE_TEMP_TRIGGER:
      findings.refusal = "triggers are not supported";
      break;
    case SQLITE_CREATE_VTABLE:
      findings.refusal = "near \"VIRTUAL\": syntax error";
      break;
    case SQLITE_SAVEPOINT:
      findings.refusal = "near \"TO\": syntax error";
      break;
    default:
      break;
  }
}

/// libsqlite3's authorizer: is told every step of a statement, the object itself first.
int Note(void* context, int code, const char* first, const char* second, const char*, const char*) {
  Findings& findings = *static_cast<Findings*>(context);
  SchemaStatement& statement = findings.statement;
  if (statement.action != Action::Nothing) {
    statement.isSelection |= code == SQLITE_SELECT && statement.type == "table";
    return SQLITE_OK;
  }
  NoteRefusal(code, findings);
  if (code == SQLITE_TRANSACTION) {
    NoteTransaction(TextOf(first), findings);
  }
  for (const ObjectCode& known : kObjectCodes) {
    if (known.code == code) {
      statement = {known.action, known.type, TextOf(first), TextOf(second), false};
    }
  }
  return SQLITE_OK;
}

/// While it lives, libsqlite3 tells of the statements that it compiles.
class Listening {
 public:
  Listening(sqlite3* handle, Findings& findings) : handle_(handle) {
    sqlite3_set_authorizer(handle_, &Note, &findings);
  }
  ~Listening() { sqlite3_set_authorizer(handle_, nullptr, nullptr); }
  Listening(const Listening&) = delete;
  Listening& operator=(const Listening&) = delete;

 private:
  sqlite3* handle_;
};

/// The failure to compile a statement, in the words of the shell.
DatabaseError Worded(const DatabaseError& failure, const SchemaStatement& statement) {
  constexpr std::string_view kNoColumn = "no such column: ";
  if (statement.type != "index" || !failure.Text().starts_with(kNoColumn)) {
    return failure;
  }
  return DatabaseError("table " + statement.table + " has no column named " +
                       failure.Text().substr(kNoColumn.size()));
}

}  // namespace

void SchemaCompiler::Follow(Database& database) {
  if (likeness_ && version_ == database.SchemaVersion()) {
    return;
  }
  likeness_.emplace();
  // A name in double quotes that no column bears is a mistake in an index, not a text.
  sqlite3_db_config(likeness_->Handle(), SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  for (const CatalogObject& object : database.Objects()) {
    likeness_->DeclareIfUnderstood(object.sql.value_or(""));
  }
  version_ = database.SchemaVersion();
}

SchemaStatement SchemaCompiler::Compile(std::string_view sql) {
  if (!likeness_) {
    likeness_.emplace();
  }
  Findings findings;
  const Listening listening(likeness_->Handle(), findings);
  try {
    std::ignore = likeness_->Compile(sql);
  } catch (const DatabaseError& failure) {
    throw Worded(failure, findings.statement);
  }
  if (!findings.refusal.empty()) {
    throw DatabaseError(findings.refusal);
  }
  return findings.statement;
}

void SchemaCompiler::Accept(std::string_view sql, std::uint64_t version) {
  if (version_ != version) {
    likeness_->RunIfUnderstood(sql);
    version_ = version;
  }
}

std::vector<bool> SchemaCompiler::Defaults(const Table& table) {
  constexpr int kDefaultColumn = 4;
  std::vector<bool> result;
  auto information = likeness_->Compile("PRAGMA table_info(" + QuoteName(table.name) + ")");
  while (information && information->Step()) {
    result.push_back(information->Column(kDefaultColumn).has_value());
  }
  result.resize(table.columns.size());
  return result;
}

std::string SchemaCompiler::KeptText(std::string_view sql) {
  likeness_->Run("SAVEPOINT kept");
  likeness_->Run(sql);
  std::string result;
  {
    auto text = likeness_->Compile("SELECT sql FROM sqlite_master ORDER BY rowid DESC LIMIT 1");
    if (text && text->Step()) {
      result = text->Column(0).value_or("");
    }
  }
  likeness_->Run("ROLLBACK TO kept");
  likeness_->Run("RELEASE kept");
  return result;
}

}  // namespace lexmill::platform::sqlite
