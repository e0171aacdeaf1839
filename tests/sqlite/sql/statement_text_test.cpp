// SPDX-License-Identifier: MIT
#include "platform/sqlite/sql/statement_text.h"

#include <string>

#include <gtest/gtest.h>

namespace lexmill::platform::sqlite {
namespace {

TEST(StatementText, KeepsTheOrderOfJoinedTables) {
  const struct {
    const char* sql;
    const char* fixed;
  } cases[] = {
      {"SELECT a,b FROM R INNER JOIN S ON f(a,b)=c ORDER BY a,b",
       "SELECT a,b FROM R CROSS JOIN S ON f(a,b)=c ORDER BY a,b"},
      {"select a from R, S t,O where a in (1,2)",
       "select a from R CROSS JOIN  S t CROSS JOIN O where a in (1,2)"},
      {"SELECT a FROM R join S USING(x,y)", "SELECT a FROM R CROSS JOIN S USING(x,y)"},
      {"SELECT a FROM R LEFT OUTER JOIN S NATURAL JOIN O",
       "SELECT a FROM R LEFT OUTER JOIN S NATURAL CROSS JOIN O"},
      {"SELECT a FROM (SELECT b,c FROM x,y),(R,S)",
       "SELECT a FROM (SELECT b,c FROM x CROSS JOIN y) CROSS JOIN (R CROSS JOIN S)"},
      {"SELECT 'FROM a,b' FROM \"x,y\" -- ,\n LIMIT 1,2",
       "SELECT 'FROM a,b' FROM \"x,y\" -- ,\n LIMIT 1,2"},
      {"SELECT a FROM x UNION SELECT b,c FROM y", "SELECT a FROM x UNION SELECT b,c FROM y"},
      {"SELECT sql FROM sqlite_master", "SELECT sql FROM lexmill_master"},
  };
  for (const auto& expected : cases) {
    EXPECT_EQ(WithFixedJoinOrder(expected.sql), expected.fixed);
  }
}

TEST(StatementText, BodyHasNeitherCommentsRoundItNorSemicolon) {
  EXPECT_EQ(StatementBody(" -- c\n CREATE TABLE R(a /* b */ ) ; -- d\n"),
            "CREATE TABLE R(a /* b */ )");
  EXPECT_EQ(StatementBody("SELECT ';'"), "SELECT ';'");
  EXPECT_EQ(StatementBody(" /* ; */ ; "), "");
}

TEST(StatementText, EverySpellingBecomesThePlainOne) {
  const struct {
    const char* sql;
    const char* plain;
  } cases[] = {
      {"insert\tInto \"R\"values('a' , /* ' */null,\r\n'it''s')",
       "INSERT INTO R VALUES ('a',NULL,'it''s');"},
      {"update [R]set `c`= 'x'where k ='y'", "UPDATE R SET c='x' WHERE k='y';"},
      {"INSERT INTO R VALUES ('a' 'b')", "INSERT INTO R VALUES ('a' 'b');"},
      {"INSERT INTO R VALUES (\"a b\")", "INSERT INTO R VALUES (\"a b\");"},
  };
  for (const auto& expected : cases) {
    EXPECT_EQ(WithPlainSpelling(expected.sql), expected.plain);
  }
}

TEST(StatementText, NulByteEndsItsStringOnly) {
  using namespace std::string_literals;
  EXPECT_EQ(WithoutNulBytes("x ('a\0b''c','d','\0') \0y"s), "x ('a','d','')  y");
}

}  // namespace
}  // namespace lexmill::platform::sqlite
