// SPDX-License-Identifier: MIT
// Random work on a table with two indexes, compared with a list of rows.
#include <array>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/sqlite/table/database.h"
#include "tests/sqlite/database_world.h"

namespace lexmill::test {
namespace {

using platform::sqlite::Database;
using platform::sqlite::Statement;
using platform::sqlite::Table;

class RandomWork : public DatabaseTest, public testing::WithParamInterface<unsigned> {
 protected:
  using Model = std::vector<std::array<std::string, 3>>;

  std::string RandomText() {
    static constexpr std::array<unsigned, 6> kScales = {3, 30, 240, 260, 1500, 5000};
    const unsigned scale = kScales.at(Draw(Draw(8) == 0 ? 6 : 4));
    std::string text(Draw(scale), static_cast<char>('a' + Draw(3)));
    return text + std::to_string(Draw(50));
  }

  /// Adds a row, or changes those with the same first or second text as one of them.
  void Step(Database& database, Model& model) {
    const Table& table = TableOf(database, "R");
    if (model.empty() || Draw(2) == 0) {
      const auto& row =
          model.emplace_back(std::array<std::string, 3>{RandomText(), RandomText(), RandomText()});
      Append(database, "R", {row[0], row[1], row[2]});
      return;
    }
    const std::size_t column = Draw(2);
    const std::string key = model[Draw(static_cast<unsigned>(model.size()))].at(column);
    const std::string value = RandomText();
    database.UpdateWhere(table, column, 2, key, value);
    for (auto& row : model) {
      row[2] = row.at(column) == key ? value : row[2];
    }
  }

  /// A statement of several steps, kept or dropped.
  void StatementOf(Database& database, Model& model) {
    Statement frame(database, Statement::Access::Write);
    Model changed = model;
    for (unsigned steps = Draw(40); steps > 0; --steps) {
      Step(database, changed);
    }
    if (Draw(4) != 0) {
      frame.Complete();
      model = changed;
    }
  }

  /// A number from 0 on, below `end`.
  unsigned Draw(unsigned end) { return static_cast<unsigned>(random_() % end); }

  std::mt19937 random_{GetParam()};
};

TEST_P(RandomWork, EndsAsTheModelSays) {
  Model model;
  Change([](Database& database) {
    Write(database, [&] {
      database.CreateTable("R", "CREATE TABLE R(r1 TEXT,r2 TEXT,r3 TEXT)");
      database.CreateIndex("irm", "R", "CREATE INDEX irm ON R(r1)");
      database.CreateIndex("i2", "R", "CREATE INDEX i2 ON R(r2,r1)");
    });
  });
  for (int round = 0; round < 25; ++round) {
    Database database(path_);
    Model changed = model;
    const bool isOneByOne = Draw(3) == 0;
    if (!isOneByOne) {
      database.Begin();
    }
    for (unsigned statements = Draw(8); statements > 0; --statements) {
      StatementOf(database, changed);
    }
    if (isOneByOne || Draw(3) != 0) {
      if (!isOneByOne) {
        database.Commit();
      }
      model = changed;
    }
  }
  const FileContent content = CheckFile(Bytes());
  EXPECT_EQ(content.findings, "");
  Model found;
  for (const auto& [rowId, row] : content.tables.at("R")) {
    found.push_back(
        {row.at(0).value_or("NULL"), row.at(1).value_or("NULL"), row.at(2).value_or("NULL")});
  }
  EXPECT_EQ(found, model);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomWork, testing::Range(1U, 7U));

}  // namespace
}  // namespace lexmill::test
