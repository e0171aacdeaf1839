// SPDX-License-Identifier: MIT
// Random work on a table with two indexes, compared with a map.
#include <array>
#include <map>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "platform/sqlite/table/database.h"
#include "tests/sqlite/database_world.h"

namespace lexmill::test {
namespace {

using platform::sqlite::Database;
using platform::sqlite::RowId;
using platform::sqlite::Statement;
using platform::sqlite::Table;
using platform::sqlite::Value;

class RandomWork : public DatabaseTest, public testing::WithParamInterface<unsigned> {
 protected:
  using Model = std::map<RowId, std::array<std::string, 2>>;

  std::string RandomText() {
    static constexpr std::array<unsigned, 6> kScales = {3, 30, 240, 260, 1500, 5000};
    const unsigned scale = kScales.at(Draw(Draw(8) == 0 ? 6 : 4));
    std::string text(Draw(scale), static_cast<char>('a' + Draw(3)));
    return text + std::to_string(Draw(50));
  }

  void Step(Database& database, const Table& table, Model& model) {
    const std::array<std::string, 2> texts{RandomText(), RandomText()};
    const std::array values{Value(texts[0]), Value(texts[1])};
    const RowId rowId = static_cast<RowId>(Draw(400));
    switch (Draw(5)) {
      case 0:
        model[database.Append(table, values)] = texts;
        break;
      case 1:
        if (!model.contains(rowId)) {
          database.Insert(table, rowId, values);
          model[rowId] = texts;
        }
        break;
      case 2:
        database.Update(table, rowId, values);
        if (model.contains(rowId)) {
          model[rowId] = texts;
        }
        break;
      default:
        database.Delete(table, rowId);
        model.erase(rowId);
    }
  }

  /// A statement of several steps, kept or dropped.
  void StatementOf(Database& database, Model& model) {
    Statement frame(database, Statement::Access::Write);
    const Table& table = *database.FindTable("R");
    Model changed = model;
    for (unsigned steps = Draw(40); steps > 0; --steps) {
      Step(database, table, changed);
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
    MakeR(database, true);
    Write(database, [&] { database.CreateIndex("i2", "R", "CREATE INDEX i2 ON R(r2,r1)"); });
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
  std::map<RowId, FileRow> expected;
  for (const auto& [rowId, texts] : model) {
    expected[rowId] = {texts[0], texts[1]};
  }
  EXPECT_EQ(content.tables.at("R"), expected);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomWork, testing::Range(1U, 13U));

}  // namespace
}  // namespace lexmill::test
