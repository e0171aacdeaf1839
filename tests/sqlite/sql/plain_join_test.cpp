// SPDX-License-Identifier: MIT
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "tests/sqlite/shell_world.h"

namespace lexmill::platform::sqlite {
namespace {

using namespace std::string_literals;

constexpr std::string_view kTables =
    "BEGIN TRANSACTION;\n"
    "CREATE TABLE R(r1 TEXT,r2 TEXT);\n"
    "CREATE TABLE S(so TEXT,sh TEXT,sm TEXT,sk TEXT,st TEXT);\n"
    "CREATE TABLE O(o0 TEXT,o1 TEXT,o2 TEXT);\n";

/// The join of a batch; with any other spelling of its condition it goes to libsqlite3.
std::string JoinOn(std::string_view condition) {
  return "SELECT DISTINCT S.so,S.sh,R.r2,S.sk,S.st FROM R INNER JOIN S ON " +
         std::string(condition) + ";";
}

TEST(PlainJoin, GoesByTheOrderOfTheFirstTableThenOfTheSecond) {
  for (const std::string indexes :
       {"", "CREATE INDEX irm ON R(r1);\n", "CREATE INDEX ism ON S(sm);\n",
        "CREATE INDEX irm ON R(r1);\nCREATE INDEX ism ON S(sm);\n"}) {
    SCOPED_TRACE(indexes);
    const ShellWorld world;
    ASSERT_EQ(world.Script(std::string(kTables) +
                           "INSERT INTO R VALUES ('z','R1');\nINSERT INTO R VALUES ('a','R2');\n"
                           "INSERT INTO R VALUES ('m','R3');\nINSERT INTO R VALUES ('a','R4');\n"
                           "INSERT INTO R VALUES ('a','R2');\n"
                           "INSERT INTO S VALUES ('s1','','m','','');\n"
                           "INSERT INTO S VALUES ('s2','','a','','');\n"
                           "INSERT INTO S VALUES ('s3','','z','','');\n"
                           "INSERT INTO S VALUES ('s9','','a','','');\n"
                           "INSERT INTO S VALUES ('s4','','a','','');\n"
                           "INSERT INTO S VALUES ('s2','','a','','');\n" +
                           indexes + "COMMIT;\n"),
              "");
    for (const char* condition : {"R.r1=S.sm", "R.r1 = S.sm", "S.sm=R.r1"}) {
      SCOPED_TRACE(condition);
      EXPECT_EQ(world.Select(JoinOn(condition)),
                "s3||R1||\ns2||R2||\ns9||R2||\ns4||R2||\ns1||R3||\ns2||R4||\ns9||R4||\ns4||R4||\n");
    }
  }
}

TEST(PlainJoin, MeetsInUpperCaseByCharacter) {
  const ShellWorld world;
  // Full-width, Greek, Cyrillic, and a Chinese character whose second byte is that of an "a".
  ASSERT_EQ(world.Script(std::string(kTables) +
                         "INSERT INTO R VALUES ('open','1');\n"
                         "INSERT INTO R VALUES ('\xA3\xE1\xA6\xC1\xA7\xD1','2');\n"
                         "INSERT INTO R VALUES ('\x81\x61','3');\n"
                         "INSERT INTO S VALUES ('w1','','\xA3\xC1\xA6\xA1\xA7\xA1','','');\n"
                         "INSERT INTO S VALUES ('w2','','\x81\x61','','');\n"
                         "INSERT INTO S VALUES ('w3','','\x81\x41','','');\n"
                         "INSERT INTO S VALUES ('w4','','open','','');\n"
                         "INSERT INTO S VALUES ('w5','','OPEN','','');\nCOMMIT;\n"),
            "");
  for (const char* condition : {"Upper(R.r1)=S.sm", "upper(R.r1)=S.sm"}) {
    EXPECT_EQ(world.Select(JoinOn(condition)), "w5||1||\nw1||2||\nw2||3||\n") << condition;
  }
}

TEST(PlainJoin, ComparesWholeRowsAlsoWhenTheyAreTooLongToKeep) {
  const ShellWorld world;
  const std::string big(70'000, 'x');
  std::string script(kTables);
  for (const std::string so : {"s1", "a", "b", "a", "s2"}) {
    const bool isShort = so[0] == 's';
    script += "INSERT INTO S VALUES ('" + so + "','" + (isShort ? "" : big) + "','" +
              (isShort ? "k" : big) + "','','');\n";
  }
  for (const std::string r2 : {"1", "2", "1"}) {
    script += "INSERT INTO R VALUES ('" + big + "','" + r2 + "');\n";
    script += "INSERT INTO R VALUES ('k','" + big + r2 + "');\n";
  }
  ASSERT_EQ(world.Script(script + "COMMIT;\n"), "");
  std::string expected;
  for (const std::string r2 : {"1", "2"}) {
    for (const std::string so : {"a", "b"}) {
      expected += so + "|" + big + "|" + r2 + "||\n";
    }
    for (const std::string so : {"s1", "s2"}) {
      expected += so + "||" + big + r2 + "||\n";
    }
  }
  EXPECT_EQ(world.Select(JoinOn("R.r1=S.sm")), expected);
}

TEST(PlainJoin, PrintsARowOnceThatTwoKeysGive) {
  const ShellWorld world;
  ASSERT_EQ(
      world.Script(std::string(kTables) + "INSERT INTO R VALUES ('k1','t');\n"
                                          "INSERT INTO R VALUES ('k2','t');\n"
                                          "INSERT INTO S VALUES ('s','','k1','','');\n"
                                          "INSERT INTO S VALUES ('s','','k2','','');\nCOMMIT;\n"),
      "");
  EXPECT_EQ(world.Select(JoinOn("R.r1=S.sm")), "s||t||\n");
}

TEST(PlainJoin, SaysWhenARowIsTooLong) {
  const ShellWorld world;
  const std::string half(600'000, 'x');
  ASSERT_EQ(world.Script(std::string(kTables) + "INSERT INTO R VALUES ('k','short');\n" +
                         "INSERT INTO R VALUES ('k','" + half + "');\n" +
                         "INSERT INTO S VALUES ('" + half + "','','k','','');\nCOMMIT;\n"),
            "");
  for (const char* condition : {"R.r1=S.sm", "S.sm=R.r1"}) {
    EXPECT_EQ(world.Run({"", JoinOn(condition)}),
              (ShellOutcome{half + "||short||\r\n",
                            "SQL error: too much data for one table row\r\n", 1}));
  }
}

/// Statements at random, each as scripts spell it, to be collected with others, and in another
/// spelling, to be carried out at once. A few values occur over and over; some rows hold NULL.
class RandomStatements {
 public:
  std::string plain{kTables};
  std::string other{kTables};

  void Add() {
    const unsigned kind = Number(6);
    if (kind == 0) {
      Add("UPDATE ", "O SET o2=" + Text(6) + " WHERE o1=" + Text(6) + ";\n");
    } else if (kind == 1) {
      Add("UPDATE ", "O SET o1=" + Text(6) + " WHERE o2=" + Text(6) + ";\n");
    } else if (kind == 2) {
      Add("INSERT INTO ", "O VALUES (" + Texts(3) + ");\n");
    } else if (kind == 3) {
      // A string with one key, so that the join need not leave the rows to libsqlite3.
      const std::string key = Text();
      Add("INSERT INTO ", "S VALUES (" + key + "," + Text() + "," + key + "," + Texts(2) + ");\n");
    } else if (kind == 4) {
      Add("INSERT INTO ", "R VALUES (" + Texts(2) + ");\n");
    } else {
      Add("INSERT INTO ", "R VALUES (" + Texts(1) + ");\n");
    }
  }

 private:
  unsigned Number(unsigned end) { return static_cast<unsigned>(random_() % end); }

  std::string Text(unsigned kinds = 7) {
    constexpr const char* kTexts[] = {"'a'", "'A'", "'''B'''", "''", "'\xA3\xE1'", "' a'", "NULL"};
    return kTexts[Number(kinds)];
  }

  std::string Texts(int count) {
    std::string result = Text();
    while (--count > 0) {
      result.append(",").append(Text());
    }
    return result;
  }

  void Add(std::string_view verb, std::string_view rest) {
    plain.append(verb).append(rest);
    other.append(verb).append(" ").append(rest);
  }

  std::mt19937 random_{20240501};
};

TEST(PlainJoin, BothWaysAgreeOnRandomTables) {
  for (const std::string index : {"", "CREATE INDEX ioo ON O(o1);\n"}) {
    RandomStatements statements;
    for (int i = 0; i < 3'000; ++i) {
      if (i == 1'000) {
        statements.plain += index;
        statements.other += index;
      }
      statements.Add();
    }
    const ShellWorld plain;
    const ShellWorld other;
    std::string failures = other.Script(statements.other + "COMMIT;\n");
    for (std::size_t at = 0; (at = failures.find("  ", at)) != std::string::npos;) {
      failures.erase(at, 1);  // they are echoed as they are spelled
    }
    EXPECT_NE(failures, "");
    EXPECT_EQ(plain.Script(statements.plain + "COMMIT;\n"), failures);
    for (const char* query :
         {"SELECT rowid,* FROM R", "SELECT rowid,* FROM S", "SELECT rowid,* FROM O"}) {
      EXPECT_EQ(plain.Select(query), other.Select(query)) << query;
    }
    for (const std::string& join : std::vector<std::string>{
             JoinOn("R.r1=S.sm"), JoinOn("Upper(R.r1)=S.sm"),
             "SELECT DISTINCT S.st,O.o1,S.so,O.o0,S.sm FROM S INNER JOIN O ON S.sm=O.o1;"s,
             "SELECT DISTINCT R.r1,O.o0,R.r2,R.r2 FROM O INNER JOIN R ON Upper(O.o2)=R.r1;"s,
             "SELECT DISTINCT O.o0,S.so FROM O INNER JOIN S ON O.o1=S.sk;"s,
             "SELECT DISTINCT R.r2 FROM R INNER JOIN S ON R.r1=S.sm;"s}) {
      std::string spelled = join;
      spelled.insert(spelled.find('=') + 1, " ");
      EXPECT_EQ(plain.Select(join), other.Select(spelled)) << join;
    }
    EXPECT_EQ(plain.Select("SELECT o0,o2 FROM O;"), other.Select("SELECT o0, o2 FROM O;"));
  }
}

}  // namespace
}  // namespace lexmill::platform::sqlite
