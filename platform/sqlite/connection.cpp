// SPDX-License-Identifier: MIT
#include "platform/sqlite/connection.h"

#include <array>

namespace lexmill::platform::sqlite {
namespace {

/// The longest text or row, in bytes: what a row of the file can hold.
constexpr int kLongestValue = 1048576;

/// Failures that a statement on our tables brings through libsqlite3.
struct MappedError {
  int code;
  KnownError error;
};
constexpr std::array<MappedError, 5> kMappedErrors = {{{SQLITE_CORRUPT, kMalformed},
                                                       {SQLITE_CANTOPEN, kCannotOpen},
                                                       {SQLITE_IOERR, kInputOutput},
                                                       {SQLITE_FULL, kFull},
                                                       {SQLITE_TOOBIG, kRowTooLong}}};

/// The last failure in the words of the shell.
DatabaseError LastError(sqlite3* handle) {
  for (const MappedError& mapped : kMappedErrors) {
    if (sqlite3_errcode(handle) == mapped.code) {
      return DatabaseError(mapped.error);
    }
  }
  std::string text = sqlite3_errmsg(handle);
  constexpr std::string_view kSchema = "main.";
  for (const std::string_view head : {"no such table: ", "no such index: ", "no such view: "}) {
    if (text.starts_with(head) && text.compare(head.size(), kSchema.size(), kSchema) == 0) {
      text.erase(head.size(), kSchema.size());
    }
  }
  return DatabaseError(text);
}

/// libsqlite3's authorizer for statements that only declare an object.
int AllowDeclarations(void*, int action, const char*, const char*, const char*, const char*) {
  switch (action) {
    case SQLITE_SELECT:
    case SQLITE_ATTACH:
    case SQLITE_DETACH:
    case SQLITE_PRAGMA:
    case SQLITE_TRANSACTION:
    case SQLITE_SAVEPOINT:
    case SQLITE_CREATE_VTABLE:
      return SQLITE_DENY;
    default:
      return SQLITE_OK;
  }
}

/// While it lives, a connection takes declarations only.
class OnlyDeclarations {
 public:
  explicit OnlyDeclarations(sqlite3* handle) : handle_(handle) {
    sqlite3_set_authorizer(handle_, &AllowDeclarations, nullptr);
  }
  ~OnlyDeclarations() { sqlite3_set_authorizer(handle_, nullptr, nullptr); }
  OnlyDeclarations(const OnlyDeclarations&) = delete;
  OnlyDeclarations& operator=(const OnlyDeclarations&) = delete;

 private:
  sqlite3* handle_;
};

}  // namespace

int ResultCodeOf(const DatabaseError& failure) {
  for (const MappedError& mapped : kMappedErrors) {
    if (failure.Kind() == mapped.error.kind) {
      return mapped.code;
    }
  }
  return SQLITE_ERROR;
}

bool CompiledStatement::Step() {
  const int code = sqlite3_step(statement_.get());
  if (code != SQLITE_ROW && code != SQLITE_DONE) {
    throw LastError(connection_);
  }
  return code == SQLITE_ROW;
}

std::string CompiledStatement::ColumnName(int column) const {
  const char* name = sqlite3_column_name(statement_.get(), column);
  return name == nullptr ? "" : name;
}

std::optional<std::string_view> CompiledStatement::Column(int column) const {
  const void* bytes = sqlite3_column_text(statement_.get(), column);
  if (bytes == nullptr) {
    return std::nullopt;
  }
  return std::string_view(static_cast<const char*>(bytes),
                          static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column)));
}

Connection::Connection() {
  sqlite3* handle = nullptr;
  const int code = sqlite3_open("", &handle);
  handle_.reset(handle);
  if (code != SQLITE_OK) {
    throw DatabaseError(sqlite3_errstr(code));
  }
  sqlite3_limit(handle, SQLITE_LIMIT_LENGTH, kLongestValue);
}

std::optional<CompiledStatement> Connection::Compile(std::string_view sql) {
  sqlite3_stmt* statement = nullptr;
  const int code = sqlite3_prepare_v2(handle_.get(), sql.data(), static_cast<int>(sql.size()),
                                      &statement, nullptr);
  if (code != SQLITE_OK) {
    throw LastError(handle_.get());
  }
  if (statement == nullptr) {
    return std::nullopt;
  }
  return CompiledStatement(handle_.get(), statement);
}

void Connection::Run(std::string_view sql) {
  std::optional<CompiledStatement> statement = Compile(sql);
  while (statement && statement->Step()) {
  }
}

void Connection::Declare(std::string_view sql) {
  const OnlyDeclarations guard(handle_.get());
  Run(sql);
}

void Connection::DeclareIfUnderstood(std::string_view sql) {
  try {
    Declare(sql);
  } catch (const DatabaseError&) {
    // Says so when a statement names it.
  }
}

std::string QuoteName(std::string_view name) {
  std::string result = "\"";
  for (const char c : name) {
    result.append(c == '"' ? 2 : 1, c);
  }
  return result + '"';
}

}  // namespace lexmill::platform::sqlite
