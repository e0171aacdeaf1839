// SPDX-License-Identifier: MIT
#include "platform/sqlite/sql/plain_statement.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace lexmill::platform::sqlite {
namespace {

using testing::ElementsAre;

TEST(PlainInsert, ReadsNameValuesAndLength) {
  PlainInsert insert;
  const std::string_view text = "INSERT INTO R VALUES ('it''s ''','','\\;--');INSERT";
  EXPECT_EQ(insert.Read(text), text.size() - 6);
  EXPECT_EQ(insert.Table(), "R");
  EXPECT_THAT(insert.Values(), ElementsAre("it's '", "", "\\;--"));

  const std::string_view null = "INSERT INTO R VALUES (NULL,'NULL');";
  EXPECT_EQ(insert.Read(null), null.size());
  EXPECT_THAT(insert.Values(), ElementsAre(std::nullopt, "NULL"));

  const std::string_view doubled = "INSERT INTO S VALUES ('''','''''','a''b''''c');";
  EXPECT_EQ(insert.Read(doubled), doubled.size());
  EXPECT_THAT(insert.Values(), ElementsAre("'", "''", "a'b''c"));
}

TEST(PlainInsert, LeavesEveryOtherSpellingAlone) {
  PlainInsert insert;
  for (const char* text :
       {"", "INSERT INTO R VALUES ();", "INSERT INTO R VALUES ('a'", "INSERT INTO R VALUES ('a",
        "INSERT INTO R VALUES ('a')", "INSERT INTO R VALUES('a');", "insert into R values ('a');",
        "INSERT INTO R VALUES ('a' ,'b');", "INSERT INTO R VALUES (1);",
        "INSERT INTO \"R\" VALUES ('a');", "INSERT INTO 1R VALUES ('a');",
        "INSERT INTO R(r1) VALUES ('a');", "INSERT INTO R VALUES ('a'||'b');",
        " INSERT INTO R VALUES ('a');"}) {
    EXPECT_EQ(insert.Read(text), 0u) << text;
  }
}

TEST(PlainUpdate, ReadsOnlyItsForm) {
  PlainUpdate update;
  const std::string_view text = "UPDATE O SET o2='it''s' WHERE o1='a''''b';";
  EXPECT_EQ(update.Read(text), text.size());
  EXPECT_EQ(update.Table(), "O");
  EXPECT_EQ(update.ValueColumn(), "o2");
  EXPECT_EQ(update.Value(), "it's");
  EXPECT_EQ(update.KeyColumn(), "o1");
  EXPECT_EQ(update.Key(), "a''b");
  for (const char* other :
       {"UPDATE O SET o2='a' WHERE o1='b'", "UPDATE O SET o2='a';",
        "UPDATE O SET o2=o1 WHERE o1='b';", "UPDATE O SET o2='a' WHERE o1='b' OR o1='c';",
        "UPDATE O SET o2='a',o0='' WHERE o1='b';"}) {
    EXPECT_EQ(update.Read(other), 0u) << other;
  }
}

TEST(PlainQueries, AreKnownByTheirWholeText) {
  const auto listing = ReadPlainListing("SELECT o0,o2 FROM O; \r\n");
  ASSERT_TRUE(listing);
  EXPECT_THAT(listing->columns, ElementsAre("o0", "o2"));
  EXPECT_EQ(listing->table, "O");
  for (const char* other :
       {"SELECT * FROM O;", "SELECT o0 FROM O,S;", "SELECT o0 FROM O WHERE 1;",
        "SELECT o0 FROM O; SELECT o2 FROM O;", "SELECT 1 FROM O;", "SELECT O.o0 FROM O;"}) {
    EXPECT_FALSE(ReadPlainListing(other)) << other;
  }
}

TEST(PlainQueries, JoinGivesTheNamesInIt) {
  const std::string head = "SELECT DISTINCT B.x,a.y,B.k FROM a INNER JOIN B ON ";
  const std::string statement = head + "Upper(a.k)=B.z;";
  const auto join = ReadPlainJoin(statement);
  ASSERT_TRUE(join);
  ASSERT_EQ(join->columns.size(), 3U);
  EXPECT_EQ(join->columns[1].written, "a.y");
  EXPECT_EQ(join->columns[2].table, "B");
  EXPECT_EQ(join->outer.column, "k");
  EXPECT_EQ(join->inner.column, "z");
  EXPECT_TRUE(join->isUpper);
  const std::string plain = head + "a.k=B.z";
  EXPECT_FALSE(ReadPlainJoin(plain).value().isUpper);
  for (const char* on : {"a.k=B.z AND 1;", "B.z=a.k;", "a.k=c.z;", "k=B.z;", "Upper(a.k=B.z);",
                         "a.k=Upper(B.z);", "a.k=B."}) {
    EXPECT_FALSE(ReadPlainJoin(head + on)) << on;
  }
  EXPECT_FALSE(ReadPlainJoin("SELECT DISTINCT c.x FROM a INNER JOIN B ON a.k=B.z;"));
}

}  // namespace
}  // namespace lexmill::platform::sqlite
