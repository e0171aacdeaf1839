// SPDX-License-Identifier: MIT
#include "platform/sqlite/table/database.h"

#include <array>
#include <map>
#include <sstream>

#include <gtest/gtest.h>

#include "platform/sqlite/table/table_cursor.h"
#include "tests/sqlite/database_world.h"
#include "tests/support/files.h"

namespace lexmill::test {
namespace {

using namespace std::string_literals;
using platform::sqlite::Database;
using platform::sqlite::IndexCursor;
using platform::sqlite::RowId;
using platform::sqlite::Statement;
using platform::sqlite::Table;
using platform::sqlite::TableCursor;
using platform::sqlite::Value;
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
    Write(database, [&] {
      database.Update(table, 1, std::array{Value("renamed"), Value()});
      database.Delete(table, 2);
    });
    rows[0] = "renamed\tNULL";
    rows.erase(rows.begin() + 1);
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
  const std::string bytes = Bytes();
  ASSERT_EQ(bytes.size(), 3072U);
  // The padding behind the cell has no meaning.
  EXPECT_EQ(bytes.substr(2048 + 4, 2), "\x08\x00"s);
  EXPECT_EQ(bytes.substr(2048 + 8, 29),
            "\0\0\0\0\x04\0\0\0\0\0\x0D\0\x80\0\0\x01\x03\x08\x0DOpen\0\xB4\xF2\xBF\xAA\0"s);
}

TEST_F(DatabaseTest, ReferenceTableIsRecognisedByItsPlace) {
  constexpr std::string_view kSql = "CREATE TABLE R(r1 TEXT,r2 TEXT)";
  Change([](Database& database) {
    MakeR(database, false);
    for (int i = 0; i < 2000; ++i) {
      Append(database, "R", {"key " + std::to_string(i), "text"});
    }
    Write(database, [&] { database.CreateIndex("irm", "R", "CREATE INDEX irm ON R(r1)"); });
  });
  EXPECT_EQ(Bytes().substr(1066, kSql.size()), kSql);
  Change([](Database& database) {
    Write(database, [&] {
      database.CreateTable("S", "CREATE TABLE S(so TEXT,sh TEXT,sm TEXT,sk TEXT,st TEXT)");
      database.CreateIndex("ism", "S", "CREATE INDEX ism ON S(sm)");
      database.DropIndex("irm");
    });
  });
  EXPECT_EQ(Bytes().substr(1066, kSql.size()), kSql);
  EXPECT_EQ(Findings(), "");
}

TEST_F(DatabaseTest, ObjectsAreToldAsTyped) {
  Change([](Database& database) {
    MakeR(database, true);
    Write(database, [&] {
      database.CreateOther("view", "v", "v", "create view v as select r1 from R");
      database.CreateTable("N", "CREATE TABLE N(id INTEGER PRIMARY KEY, a VARCHAR(9) NOT NULL, b)");
    });
  });
  Database database(path_);
  std::string objects;
  for (const auto& object : database.Objects()) {
    objects += object.type + "|" + object.name + "|" + object.tableName + "|" +
               std::to_string(object.rootPage) + "|" + object.sql.value_or("NULL") + "\n";
  }
  EXPECT_EQ(objects,
            "table|R|R|3|CREATE TABLE R(r1 TEXT,r2 TEXT)\n"
            "index|irm|R|4|CREATE INDEX irm ON R(r1)\n"
            "view|v|v|0|create view v as select r1 from R\n"
            "table|N|N|5|CREATE TABLE N(id INTEGER PRIMARY KEY, a VARCHAR(9) NOT NULL, b)\n");
  const Table& table = *database.FindTable("n");
  EXPECT_EQ(table.rowIdColumn, 0U);
  EXPECT_TRUE(table.columns[1].isText && table.columns[1].isNotNull);
  EXPECT_FALSE(table.columns[2].isText);
  EXPECT_EQ(database.FindTable("v"), nullptr);
}

TEST_F(DatabaseTest, SchemaErrorsHaveTheirKnownTexts) {
  Change([](Database& database) {
    MakeR(database, true);
    const auto error = [&database](const std::function<void()>& work) {
      return ErrorOf([&] { Write(database, work); });
    };
    EXPECT_EQ(error([&] { database.CreateTable("r", "CREATE TABLE r(a)"); }),
              "table r already exists");
    EXPECT_EQ(error([&] { database.CreateIndex("irm", "R", "CREATE INDEX irm ON R(r2)"); }),
              "index irm already exists");
    EXPECT_EQ(error([&] { database.CreateIndex("i", "Q", "CREATE INDEX i ON Q(a)"); }),
              "no such table: Q");
    EXPECT_EQ(error([&] { database.CreateIndex("i", "R", "CREATE INDEX i ON R(zz)"); }),
              "table R has no column named zz");
    EXPECT_EQ(error([&] { database.DropTable("Q"); }), "no such table: Q");
    EXPECT_EQ(error([&] { database.DropIndex("q"); }), "no such index: q");
  });
  EXPECT_EQ(Findings(), "");
}

TEST_F(DatabaseTest, UniqueTextsAreKeptUnique) {
  Change([](Database& database) {
    Write(database, [&] { database.CreateTable("P", "CREATE TABLE P(a TEXT UNIQUE,b TEXT)"); });
    EXPECT_EQ(database.Objects().at(1).name, "(P autoindex 1)");
    Append(database, "P", {"x", "1"});
    Append(database, "P", {"y", "2"});
    EXPECT_EQ(ErrorOf([&] { Append(database, "P", {"x", "3"}); }), "column a is not unique");
    const Table& table = *database.FindTable("P");
    Write(database, [&] { database.Update(table, 1, std::array{Value("x"), Value("new")}); });
    EXPECT_EQ(
        ErrorOf([&] {
          Write(database, [&] { database.Update(table, 1, std::array{Value("y"), Value("4")}); });
        }),
        "column a is not unique");
    EXPECT_EQ(Rows(database, "P"), (Rowset{"x\tnew", "y\t2"}));
  });
}

TEST_F(DatabaseTest, DroppedPagesAreUsedAgain) {
  const auto fill = [](Database& database) {
    MakeR(database, true);
    for (int i = 0; i < 3000; ++i) {
      Append(database, "R", {"key " + std::to_string(i * 7919 % 3000), std::string(i % 600, 'x')});
    }
  };
  Change(fill);
  const std::size_t size = Bytes().size();
  Change([](Database& database) { Write(database, [&] { database.DropTable("R"); }); });
  const FileContent dropped = CheckFile(Bytes());
  EXPECT_EQ(dropped.findings, "");
  EXPECT_EQ(dropped.freePages, size / 1024 - 2);
  Change(fill);
  EXPECT_EQ(Findings(), "");
  EXPECT_LE(Bytes().size(), size + 3 * 1024);
}

TEST_F(DatabaseTest, RowNumbersGoOnBehindTheGreatest) {
  Change([](Database& database) {
    MakeR(database, true);
    const Table& table = *database.FindTable("R");
    const std::array values{Value("a"), Value("b")};
    Write(database, [&] {
      database.Insert(table, -5, values);
      EXPECT_EQ(database.Append(table, values), -4);
      database.Insert(table, 7, values);
      EXPECT_EQ(database.Append(table, values), 8);
      database.Delete(table, 8);
      EXPECT_EQ(database.Append(table, values), 8);
    });
    EXPECT_EQ(ErrorOf([&] { Write(database, [&] { database.Insert(table, 7, values); }); }),
              "PRIMARY KEY must be unique");
    Write(database, [&] { database.Insert(table, 2147483647, values); });
    const RowId drawn = database.Append(table, values);
    EXPECT_TRUE(drawn > 0 && drawn != 7 && drawn != 8) << drawn;
  });
  EXPECT_EQ(Findings(), "");
  EXPECT_EQ(CheckFile(Bytes()).tables.at("R").size(), 6U);
}

TEST_F(DatabaseTest, CursorGoesOnWhileRowsChange) {
  Change([](Database& database) {
    MakeR(database, true);
    for (int i = 0; i < 500; ++i) {
      Append(database, "R", {"key", std::to_string(i)});
    }
    Statement frame(database, Statement::Access::Write);
    const Table& table = *database.FindTable("R");
    TableCursor rows(database, table);
    IndexCursor entries(database, table.indexes.front());
    entries.Seek("key");
    RowId expected = 0;
    while (rows.Next() && rows.CurrentRowId() <= 500) {
      EXPECT_EQ(rows.CurrentRowId(), ++expected);
      EXPECT_EQ(entries.Next(), expected);
      database.Append(table, std::array{Value("late"), Value(std::string(100, 'x'))});
      database.Delete(table, expected - 1);
    }
    EXPECT_EQ(expected, 500);
    EXPECT_FALSE(entries.Next());
    frame.Complete();
  });
  EXPECT_EQ(Findings(), "");
}

}  // namespace
}  // namespace lexmill::test
