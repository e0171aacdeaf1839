// SPDX-License-Identifier: MIT
#include <map>
#include <tuple>

#include <gtest/gtest.h>

#include "platform/sqlite/table/database.h"
#include "tests/sqlite/database_world.h"

namespace lexmill::test {
namespace {

using platform::sqlite::Database;
using platform::sqlite::Table;
using Rowset = std::vector<std::string>;

constexpr std::size_t kO1 = 1;
constexpr std::size_t kO2 = 2;

class KeyedUpdates : public DatabaseTest {
 protected:
  static void MakeO(Database& database, int rows, bool hasIndex) {
    Write(database, [&] {
      database.CreateTable("O", "CREATE TABLE O(o0 TEXT,o1 TEXT,o2 TEXT)");
      if (hasIndex) {
        database.CreateIndex("ioo", "O", "CREATE INDEX ioo ON O(o1)");
      }
    });
    for (int i = 0; i < rows; ++i) {
      const std::string key = "key " + std::to_string(i % 900);
      // Some rows are long in what doesn't change.
      const std::string head = std::string(i % 97 == 0 ? 3000 : 3, 'h') + ":" + key;
      Append(database, "O", {head, key, ""});
    }
  }

  /// Rows of O with `change` made by hand.
  static Rowset Expected(Rowset rows, const std::map<std::string, std::string>& change) {
    for (std::string& row : rows) {
      const std::size_t second = row.find('\t') + 1;
      const std::size_t third = row.rfind('\t') + 1;
      if (const auto found = change.find(row.substr(second, third - 1 - second));
          found != change.end()) {
        row = row.substr(0, third) + found->second;
      }
    }
    return rows;
  }
};

struct Case {
  const char* name;
  int rows;
  int updates;
  bool hasIndex;
};

class UpdatesOfATable : public KeyedUpdates, public testing::WithParamInterface<Case> {};

TEST_P(UpdatesOfATable, ChangeAllRowsOfTheirTextAndTheLastWins) {
  std::map<std::string, std::string> change;
  Rowset expected;
  Change([&](Database& database) { MakeO(database, GetParam().rows, GetParam().hasIndex); });
  Change([&](Database& database) {
    const Table& table = *database.FindTable("O");
    expected = Rows(database, "O");
    for (int i = 0; i < GetParam().updates; ++i) {
      // About half of the texts are in no row; some are the beginning of others.
      const std::string key = "key " + std::to_string(i * 7919 % 1800);
      const std::string value = std::to_string(i) + std::string(i % 11 == 0 ? 1500 : 5, 'v');
      database.UpdateWhere(table, kO1, kO2, key, value);
      change[key] = value;
    }
    expected = Expected(expected, change);
    EXPECT_EQ(Rows(database, "O"), expected);
    database.UpdateWhere(table, kO1, kO2, "key 1", "after a look");
  });
  EXPECT_EQ(Findings(), "");
  Database database(path_);
  EXPECT_EQ(Rows(database, "O"), Expected(expected, {{"key 1", "after a look"}}));
}

INSTANTIATE_TEST_SUITE_P(Sizes, UpdatesOfATable,
                         testing::Values(Case{"Few", 20000, 20, true},
                                         Case{"Many", 5000, 4000, true},
                                         Case{"ManyWithoutIndex", 5000, 4000, false},
                                         Case{"FewWithoutIndex", 20000, 20, false},
                                         Case{"NoRows", 0, 10, true}),
                         [](const auto& parameter) { return parameter.param.name; });

TEST_F(KeyedUpdates, SpaceOfOldPagesIsUsedAgain) {
  const auto round = [this](const std::string& value) {
    Change([&](Database& database) {
      const Table& table = *database.FindTable("O");
      for (int i = 0; i < 900; ++i) {
        database.UpdateWhere(table, kO1, kO2, "key " + std::to_string(i), value);
      }
    });
  };
  Change([](Database& database) { MakeO(database, 5000, true); });
  round(std::string(20, 'a'));
  round(std::string(20, 'b'));
  const std::size_t size = Bytes().size();
  for (const char letter : {'c', 'd', 'e'}) {
    round(std::string(20, letter));
  }
  EXPECT_LE(Bytes().size(), size + 2 * 1024);
  EXPECT_EQ(Findings(), "");
}

TEST_F(KeyedUpdates, RowThatWouldBeTooLongKeepsItsValue) {
  const std::string half(700000, 'x');
  Database database(path_);
  database.Begin();
  MakeO(database, 0, true);
  Append(database, "O", {half, "long", "old"});
  Append(database, "O", {"", "short", "old"});
  const Table& table = *database.FindTable("O");
  database.UpdateWhere(table, kO1, kO2, "long", half);
  database.UpdateWhere(table, kO1, kO2, "short", "new");
  EXPECT_EQ(ErrorOf([&] { database.Commit(); }), "too much data for one table row");
  EXPECT_FALSE(database.InTransaction());
  EXPECT_EQ(Findings(), "");
  EXPECT_EQ(Rows(database, "O"), (Rowset{half + "\tlong\told", "\tshort\tnew"}));

  database.Begin();
  database.UpdateWhere(table, kO1, kO2, "long", half);
  database.UpdateWhere(table, kO1, kO2, "long", "replaced");
  EXPECT_EQ(ErrorOf([&] { database.Commit(); }), "too much data for one table row");
  EXPECT_EQ(Rows(database, "O"), (Rowset{half + "\tlong\treplaced", "\tshort\tnew"}));

  database.Begin();
  database.UpdateWhere(table, kO1, kO2, "long", half);
  Append(database, "O", {"", "", ""});
  database.Rollback();
  EXPECT_EQ(ErrorOf([&] { std::ignore = Rows(database, "O"); }), "") << "nothing is left of it";
}

TEST_F(KeyedUpdates, AreForTextColumnsOutsideIndexes) {
  Change([](Database& database) {
    MakeO(database, 0, true);
    Write(database, [&] { database.CreateTable("N", "CREATE TABLE N(a TEXT,b INT,c TEXT)"); });
    const Table& o = *database.FindTable("O");
    EXPECT_TRUE(Database::CanUpdateWhere(o, kO1, kO2));
    EXPECT_TRUE(Database::CanUpdateWhere(o, 0, kO2));
    EXPECT_FALSE(Database::CanUpdateWhere(o, kO2, kO1)) << "indexed";
    EXPECT_FALSE(Database::CanUpdateWhere(o, kO2, kO2));
    const Table& n = *database.FindTable("N");
    EXPECT_FALSE(Database::CanUpdateWhere(n, 1, 2)) << "compares as a number";
    EXPECT_FALSE(Database::CanUpdateWhere(n, 0, 1));
  });
}

}  // namespace
}  // namespace lexmill::test
