// SPDX-License-Identifier: MIT
// Rows of all sizes at which their bytes change their form, up to the greatest.
#include <array>
#include <string>
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

  static std::string KeyFor(std::size_t length) { return "k" + std::to_string(length); }

  static Rowset Expected() {
    Rowset rows;
    for (const std::size_t length : kLengths) {
      rows.push_back(Text(length) + "\t");
      rows.push_back(KeyFor(length) + "\t" + Text(length));
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
  Change([](Database& database) {
    MakeR(database, false);
    for (const std::size_t length : kLengths) {
      Append(database, "R", {Text(length), ""});
      Append(database, "R", {KeyFor(length), Text(length)});
    }
    Write(database, [&] { database.CreateIndex("irm", "R", "CREATE INDEX irm ON R(r1)"); });
  });
  CheckAll();
}

TEST_F(Lengths, AreKeptByChangingRowsAndAddingEntries) {
  Change([](Database& database) {
    MakeR(database, true);
    for (std::size_t i = 0; i < kLengths.size(); ++i) {
      Write(database, [&] {
        Append(database, "R", {Text(kLengths[i]), ""});
        Append(database, "R", {KeyFor(kLengths[i]), Text(kLengths[kLengths.size() - 1 - i])});
      });
    }
    for (const std::size_t length : kLengths) {
      Write(database, [&] {
        database.UpdateWhere(TableOf(database, "R"), 0, 1, KeyFor(length), Text(length));
      });
    }
  });
  CheckAll();
}

}  // namespace
}  // namespace lexmill::test
