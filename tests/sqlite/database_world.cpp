// SPDX-License-Identifier: MIT
#include "tests/sqlite/database_world.h"

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/table/table_cursor.h"
#include "tests/sqlite/foreign_object.h"

namespace lexmill::test {

using platform::sqlite::Database;
using platform::sqlite::DatabaseError;
using platform::sqlite::IndexCursor;
using platform::sqlite::Statement;
using platform::sqlite::TableCursor;
using platform::sqlite::Value;

std::string DatabaseTest::ErrorOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const DatabaseError& error) {
    return error.Text();
  }
  return "";
}

void DatabaseTest::Change(const Work& work) const {
  Database database(path_);
  database.Begin();
  work(database);
  database.Commit();
}

void DatabaseTest::Write(Database& database, const std::function<void()>& statement) {
  Statement frame(database, Statement::Access::Write);
  statement();
  frame.Complete();
}

void DatabaseTest::MakeR(Database& database, bool hasIndex) {
  Write(database, [&] { database.CreateTable("R", "CREATE TABLE R(r1 TEXT,r2 TEXT)"); });
  if (hasIndex) {
    Write(database, [&] { database.CreateIndex("irm", "R", "CREATE INDEX irm ON R(r1)"); });
  }
}

const platform::sqlite::Table& DatabaseTest::TableOf(Database& database, std::string_view name) {
  const platform::sqlite::Table* table = database.FindTable(name);
  if (table == nullptr) {
    throw DatabaseError("no such table: " + std::string(name));
  }
  return *table;
}

void DatabaseTest::Append(Database& database, std::string_view table,
                          std::initializer_list<std::string_view> texts) {
  const std::vector<Value> values(texts.begin(), texts.end());
  database.Append(TableOf(database, table), values);
}

std::vector<std::string> DatabaseTest::Rows(Database& database, std::string_view table) {
  const Statement frame(database, Statement::Access::Read);
  const platform::sqlite::Table& found = TableOf(database, table);
  std::vector<std::string> rows;
  TableCursor cursor(database, found);
  while (cursor.Next()) {
    std::string& row = rows.emplace_back();
    for (std::size_t i = 0; i < found.columns.size(); ++i) {
      row += i == 0 ? "" : "\t";
      row += cursor.Column(i).value_or("NULL");
    }
  }
  return rows;
}

std::vector<platform::sqlite::RowId> DatabaseTest::Search(Database& database,
                                                          const platform::sqlite::Table& table,
                                                          std::string_view text) {
  std::vector<platform::sqlite::RowId> found;
  IndexCursor cursor(database, *table.IndexOn(0));
  cursor.Seek(text);
  while (const auto rowId = cursor.Next()) {
    found.push_back(*rowId);
  }
  return found;
}

std::string DatabaseTest::Bytes(std::string_view name) const {
  return ReadBytes(folder_.File(name));
}

void DatabaseTest::PutBytes(std::string_view bytes, std::string_view name) const {
  WriteBytes(folder_.File(name), bytes);
}

}  // namespace lexmill::test
