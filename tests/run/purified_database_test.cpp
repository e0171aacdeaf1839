// SPDX-License-Identifier: MIT
#include "run/purified_database.h"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "tests/support/files.h"

namespace lexmill {
namespace {

// A database as far as the test looks at it, with `schema` in place of the first table's.
std::string Database(std::string_view version, std::string_view schema) {
  std::string bytes = "** This file contains an SQLite " + std::string(version) + " database **";
  bytes.resize(1066, '\0');
  return bytes + std::string(schema);
}

TEST(PurifiedDatabase, IsRecognisedByItsHeadAndItsFirstTable) {
  constexpr std::string_view kTable = "CREATE TABLE R(r1 TEXT,r2 TEXT)";
  struct Case {
    std::string_view name;
    std::string bytes;
    bool purified;
  };
  const Case cases[] = {
      {"as saved", Database("2.1", kTable), true},
      {"something after it", Database("2.1", std::string(kTable) + "; more"), true},
      {"another table", Database("2.1", "CREATE TABLE S(so TEXT,sm TEXT)"), false},
      {"one byte short", Database("2.1", kTable.substr(0, 30)), false},
      {"one byte late", Database("2.1", " " + std::string(kTable)), false},
      {"other case", Database("2.1", "create TABLE R(r1 TEXT,r2 TEXT)"), false},
      {"another version", Database("3.0", kTable), false},
      {"short head", "** This file", false},
      {"empty", "", false},
  };
  const test::TemporaryFolder folder;
  const auto path = folder.File("any.name");
  for (const Case& row : cases) {
    test::WriteBytes(path, row.bytes);
    EXPECT_EQ(modMain::IsPurifiedDatabase(path), row.purified) << row.name;
  }
}

TEST(PurifiedDatabase, IsNothingThatCannotBeRead) {
  const test::TemporaryFolder folder;
  EXPECT_FALSE(modMain::IsPurifiedDatabase(folder.File("missing.db")));
  EXPECT_FALSE(modMain::IsPurifiedDatabase(folder.File("")));
  EXPECT_FALSE(modMain::IsPurifiedDatabase(u""));
}

}  // namespace
}  // namespace lexmill
