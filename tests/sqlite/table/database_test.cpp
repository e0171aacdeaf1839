// SPDX-License-Identifier: MIT
#include "platform/sqlite/table/database.h"

#include <map>
#include <sstream>

#include <gtest/gtest.h>

#include "platform/sqlite/table/table_cursor.h"
#include "tests/sqlite/database_world.h"
#include "tests/sqlite/foreign_object.h"
#include "tests/support/files.h"

namespace lexmill::test {
namespace {

using namespace std::string_literals;
using platform::sqlite::Database;
using platform::sqlite::RowId;
using platform::sqlite::Statement;
using platform::sqlite::Table;
using platform::sqlite::TableCursor;
using Rowset = std::vector<std::string>;

std::string FixtureBytes(const std::string& name) {
  return ReadBytes(u"data/sqlite/" + std::u16string(name.begin(), name.end()));
}

Rowset FixtureRows(const std::string& name) {
  std::istringstream lines(FixtureBytes(name + ".tsv"));
  Rowset rows;
  for (std::string line; std::getline(lines, line);) {
    rows.push_back(line);
  }
  return rows;
}

class Fixtures : public DatabaseTest, public testing::WithParamInterface<const char*> {};

TEST_P(Fixtures, RowsAndIndexAreReadAsWritten) {
  PutBytes(FixtureBytes(GetParam() + ".db"s));
  Database database(path_);
  const Rowset rows = FixtureRows(GetParam());
  EXPECT_EQ(Rows(database, "r"), rows);

  const Statement frame(database, Statement::Access::Read);
  const Table& table = *database.FindTable("R");
  std::map<std::string, std::vector<RowId>> expected;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    expected[rows[i].substr(0, rows[i].find('\t'))].push_back(static_cast<RowId>(i + 1));
  }
  for (const auto& [text, rowIds] : expected) {
    EXPECT_EQ(Search(database, table, text), rowIds) << text;
  }
  EXPECT_TRUE(Search(database, table, "no such text").empty());
  TableCursor cursor(database, table);
  EXPECT_FALSE(cursor.Seek(static_cast<RowId>(rows.size() + 1)));
  ASSERT_TRUE(cursor.Seek(static_cast<RowId>(rows.size())));
  EXPECT_EQ(std::string(*cursor.Column(0)) + "\t" + std::string(*cursor.Column(1)), rows.back());
}

TEST_P(Fixtures, CanBeAddedToAndChanged) {
  PutBytes(FixtureBytes(GetParam() + ".db"s));
  Rowset rows = FixtureRows(GetParam());
  Change([&rows](Database& database) {
    const Table& table = *database.FindTable("R");
    for (int i = 0; i < 300; ++i) {
      Append(database, "R", {"new " + std::to_string(i % 7), std::string(i, 'x')});
      rows.push_back("new " + std::to_string(i % 7) + "\t" + std::string(i, 'x'));
    }
    const std::string key = rows[0].substr(0, rows[0].find('\t'));
    database.UpdateWhere(table, 0, 1, key, "changed");
    for (std::string& row : rows) {
      row = row.starts_with(key + "\t") ? key + "\tchanged" : row;
    }
  });
  EXPECT_EQ(Findings(), "");
  Database database(path_);
  EXPECT_EQ(Rows(database, "R"), rows);
}

INSTANTIATE_TEST_SUITE_P(Files, Fixtures,
                         testing::Values("refdb-small", "refdb-2000", "other-first"),
                         [](const auto& parameter) {
                           std::string name = parameter.param;
                           std::erase(name, '-');
                           return name;
                         });

TEST_F(DatabaseTest, FirstRowHasTheBytesOfTheFormat) {
  Change([](Database& database) {
    MakeR(database, false);
    Append(database, "R", {"Open", "\xB4\xF2\xBF\xAA"});
  });
  std::string bytes = Bytes();
  ASSERT_EQ(bytes.size(), 3072U);
  // The padding after the cell has no meaning.
  EXPECT_EQ(bytes.substr(2048 + 4, 2), "\x08\x00"s);
  EXPECT_EQ(bytes.substr(2048 + 8, 29),
            "\0\0\0\0\x04\0\0\0\0\0\x0D\0\x80\0\0\x01\x03\x08\x0DOpen\0\xB4\xF2\xBF\xAA\0"s);

  // The greatest row number there is.
  PutBytes(bytes.replace(2048 + 8 + 12, 4, 4, '\xFF'));
  Database database(path_);
  database.Begin();
  EXPECT_EQ(ErrorOf([&] { Append(database, "R", {"a", "b"}); }), "database or disk is full");
}

TEST_F(DatabaseTest, ReferenceTableIsRecognisedByItsPlace) {
  constexpr std::string_view kSql = "CREATE TABLE R(r1 TEXT,r2 TEXT)";
  Change([](Database& database) {
    MakeR(database, false);
    for (int i = 0; i < 2000; ++i) {
      Append(database, "R", {"key " + std::to_string(i), "text"});
    }
    Write(database, [&] {
      database.CreateIndex("irm", "R", "CREATE INDEX irm ON R(r1)");
      database.CreateTable("S", "CREATE TABLE S(so TEXT,sh TEXT,sm TEXT,sk TEXT,st TEXT)");
      database.CreateIndex("ism", "S", "CREATE INDEX ism ON S(sm)");
    });
  });
  EXPECT_EQ(Bytes().substr(1066, kSql.size()), kSql);
  EXPECT_EQ(Findings(), "");
}

TEST_F(DatabaseTest, ObjectsAreListedAsTyped) {
  Change([](Database& database) { MakeR(database, true); });
  AddForeign(path_, {"view", "v", "v", 0, "create view v as select r1 from R"});
  AddForeign(path_,
             {"table", "N", "N", 5,
              "CREATE TABLE N(id INTEGER PRIMARY KEY, a VARCHAR(9) UNIQUE, b TEXT UNIQUE, c)"});
  AddForeign(path_, {"index", "(N autoindex 1)", "N", 6, std::nullopt});
  Database database(path_);
  std::string objects;
  for (const auto& object : database.Objects()) {
    objects += object.type + "|" + object.name + "|" + object.tableName + "|" +
               std::to_string(object.rootPage) + "|" + object.sql.value_or("NULL") + "\n";
  }
  EXPECT_EQ(
      objects,
      "table|R|R|3|CREATE TABLE R(r1 TEXT,r2 TEXT)\n"
      "index|irm|R|4|CREATE INDEX irm ON R(r1)\n"
      "view|v|v|0|create view v as select r1 from R\n"
      "table|N|N|5|CREATE TABLE N(id INTEGER PRIMARY KEY, a VARCHAR(9) UNIQUE, b TEXT UNIQUE, c)\n"
      "index|(N autoindex 1)|N|6|NULL\n");
  const Table& table = *database.FindTable("n");
  EXPECT_EQ(table.rowIdColumn, 0U);
  EXPECT_TRUE(table.columns[1].isText);
  EXPECT_FALSE(table.columns[3].isText);
  EXPECT_EQ(table.IndexOn(1)->rootPage, 6U);
  EXPECT_EQ(table.IndexOn(2), nullptr) << "isn't in the file";
  EXPECT_EQ(database.FindTable("v"), nullptr);
  EXPECT_EQ(
      ErrorOf([&] { Write(database, [&] { database.CreateTable("V", "CREATE TABLE V(a)"); }); }),
      "table V already exists");
}

}  // namespace
}  // namespace lexmill::test
