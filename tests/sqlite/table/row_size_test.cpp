// SPDX-License-Identifier: MIT
// Rows of all sizes at which their bytes change their form, up to the greatest.
#include <array>
#include <string>
#include <string_view>
#include <vector>

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
using Rowset = std::vector<std::string>;

/// Lengths at which the bytes of a row change their form: the payload that fits a cell, the width
/// of offsets, full overflow pages, keys that reach into overflow pages.
constexpr std::array<std::size_t, 33> kLengths = {
    0,   1,   2,   3,   4,   5,   114, 220, 221, 222, 223,  224,  225,  226,   227,   228,   229,
    230, 234, 235, 236, 248, 249, 250, 251, 252, 300, 1240, 1250, 5000, 65520, 65528, 100000};

class Lengths : public DatabaseTest {
 protected:
  static std::string Text(std::size_t length) {
    std::string text;
    while (text.size() < length) {
      text += static_cast<char>('!' + (text.size() * 7 + length) % 90);
    }
    return text;
  }

  Rowset Expected() const {
    Rowset rows;
    for (const std::size_t length : kLengths) {
      rows.push_back(Text(length) + "\t");
      rows.push_back("k\t" + Text(length));
    }
    return rows;
  }

  void CheckAll() {
    EXPECT_EQ(Findings(), "");
    Database database(path_);
    EXPECT_EQ(Rows(database, "R"), Expected());
    const Statement frame(database, Statement::Access::Read);
    const Table& table = *database.FindTable("R");
    for (std::size_t i = 1; i < kLengths.size(); ++i) {
      EXPECT_EQ(Search(database, table, Text(kLengths[i])),
                std::vector{static_cast<RowId>(2 * i + 1)});
    }
  }
};

TEST_F(Lengths, AreKeptByAppendingAndIndexing) {
  Change([this](Database& database) {
    MakeR(database, false);
    for (const std::size_t length : kLengths) {
      Append(database, "R", {Text(length), ""});
      Append(database, "R", {"k", Text(length)});
    }
    Write(database, [&] { database.CreateIndex("irm", "R", "CREATE INDEX irm ON R(r1)"); });
  });
  CheckAll();
}

TEST_F(Lengths, AreKeptByChangingRows) {
  Change([this](Database& database) {
    MakeR(database, true);
    for (std::size_t i = 0; i < 2 * kLengths.size(); ++i) {
      Append(database, "R", {"before", Text(kLengths[kLengths.size() - 1 - i / 2])});
    }
    const Table& table = *database.FindTable("R");
    RowId rowId = 0;
    for (const std::size_t length : kLengths) {
      Write(database, [&] {
        database.Update(table, ++rowId, std::array{Value(Text(length)), Value("")});
        database.Update(table, ++rowId, std::array{Value("k"), Value(Text(length))});
      });
    }
  });
  CheckAll();
}

struct RowLimit {
  const char* name;
  const char* sql;
  std::size_t columns;
  std::size_t greatest;  ///< bytes that the texts of a row may have together
};

class RowLimits : public DatabaseTest, public testing::WithParamInterface<RowLimit> {};

TEST_P(RowLimits, AreExactAndHarmless) {
  const RowLimit& limit = GetParam();
  std::vector<Value> values(limit.columns, Value(""));
  const std::string text(limit.greatest + 1, 'x');
  Change([&](Database& database) {
    Write(database, [&] { database.CreateTable("T", limit.sql); });
    const Table& table = *database.FindTable("T");
    values[0] = std::string_view(text).substr(1);
    EXPECT_EQ(database.Append(table, values), 1);
    values[0] = text;
    EXPECT_EQ(ErrorOf([&] { database.Append(table, values); }), "too much data for one table row");
    values[0] = "after";
    EXPECT_EQ(database.Append(table, values), 2);
  });
  EXPECT_EQ(Findings(), "");
}

INSTANTIATE_TEST_SUITE_P(
    Tables, RowLimits,
    testing::Values(RowLimit{"R", "CREATE TABLE T(r1 TEXT,r2 TEXT)", 2, 1048565},
                    RowLimit{"S", "CREATE TABLE T(so TEXT,sh TEXT,sm TEXT,sk TEXT,st TEXT)", 5,
                             1048553},
                    RowLimit{"O", "CREATE TABLE T(o0 TEXT,o1 TEXT,o2 TEXT)", 3, 1048561}),
    [](const auto& parameter) { return parameter.param.name; });

}  // namespace
}  // namespace lexmill::test
