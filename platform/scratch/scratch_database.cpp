// SPDX-License-Identifier: MIT
#include "platform/scratch/scratch_database.h"

#include <cstring>
#include <tuple>

#include <sqlite3.h>

#include "platform/failure.h"

namespace lexmill::platform {
namespace {

FailureNumber NumberOf(int code) {
  switch (code) {
    case SQLITE_NOMEM:
    case SQLITE_TOOBIG:
      return FailureNumber::OutOfMemory;
    case SQLITE_FULL:
      return FailureNumber::DiskFull;
    default:
      return FailureNumber::DeviceError;
  }
}

/// @throws Failure unless `code` says that all is well
void Check(int code) {
  if (code != SQLITE_OK && code != SQLITE_ROW && code != SQLITE_DONE) {
    throw Failure(NumberOf(code), FailureOrigin::Runtime);
  }
}

}  // namespace

void ScratchDatabase::Closer::operator()(sqlite3* database) const {
  sqlite3_close_v2(database);
}

ScratchDatabase::ScratchDatabase() {
  // An empty name asks the library for a temporary file, which it removes.
  sqlite3* database = nullptr;
  const int code = sqlite3_open("", &database);
  database_.reset(database);
  Check(code);
  Execute("PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF; PRAGMA temp_store=FILE");
}

void ScratchDatabase::Execute(const char* sql) {
  Check(sqlite3_exec(database_.get(), sql, nullptr, nullptr, nullptr));
}

void ScratchStatement::Finalizer::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}

ScratchStatement::ScratchStatement(const ScratchDatabase& database, std::string_view sql) {
  sqlite3_stmt* statement = nullptr;
  const int code = sqlite3_prepare_v2(database.database_.get(), sql.data(),
                                      static_cast<int>(sql.size()), &statement, nullptr);
  statement_.reset(statement);
  Check(code);
}

void ScratchStatement::Bind(int value, std::int64_t number) {
  Check(sqlite3_bind_int64(statement_.get(), value, number));
}

// As bytes: the library's own texts would lose units that are half of a character.
void ScratchStatement::Bind(int value, std::u16string_view text) {
  // A null pointer, which an empty text may have, would be the missing value.
  const void* const bytes = text.empty() ? "" : static_cast<const void*>(text.data());
  Check(sqlite3_bind_blob64(statement_.get(), value, bytes, text.size() * sizeof(char16_t),
                            SQLITE_TRANSIENT));
}

bool ScratchStatement::Step() {
  const int code = sqlite3_step(statement_.get());
  if (code != SQLITE_ROW) {
    sqlite3_reset(statement_.get());
  }
  Check(code);
  return code == SQLITE_ROW;
}

void ScratchStatement::Run() {
  std::ignore = Step();
}

std::int64_t ScratchStatement::Number(int column) const {
  return sqlite3_column_int64(statement_.get(), column);
}

std::u16string ScratchStatement::Text(int column) const {
  const void* const bytes = sqlite3_column_blob(statement_.get(), column);
  const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column));
  std::u16string text(size / sizeof(char16_t), u'\0');
  if (size > 0) {
    std::memcpy(text.data(), bytes, size);
  }
  return text;
}

}  // namespace lexmill::platform
