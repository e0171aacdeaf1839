// SPDX-License-Identifier: MIT
#include "platform/sqlite/shell/shell.h"

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/sqlite/foreign_object.h"
#include "tests/sqlite/shell_world.h"
#include "tests/support/hard_surroundings.h"

namespace lexmill::platform::sqlite {
namespace {

constexpr std::string_view kReference =
    "BEGIN TRANSACTION;\r\n"
    "CREATE TABLE R(r1 TEXT,r2 TEXT);\r\n"
    "INSERT INTO R VALUES ('Open','O1');\r\n"
    "INSERT INTO R VALUES ('it''s','');\r\n"
    "CREATE INDEX irm ON R(r1);\r\n"
    "COMMIT;\r\n";

TEST(SqliteShell, PrintsRowsOfEveryForm) {
  const ShellWorld world;
  ASSERT_EQ(world.Script(kReference), "");
  const struct {
    std::vector<std::string> words;
    std::string script;
    ShellOutcome outcome;
  } cases[] = {
      {{"", "SELECT r1,r2 FROM R;"}, "", {"Open|O1\r\nit's|\r\n", "", 0}},
      {{"", "SELECT r1 FROM R WHERE r1='x'", "rest"}, "", {"", "", 0}},
      {{""}, "SELECT r1,r2 FROM R;\r\n", {"Open|O1\r\nit's|\r\n", "", 0}},
      {{"-separator", "\t", "", "SELECT 1,NULL,'' FROM R"}, "", {"1\t\t\r\n1\t\t\r\n", "", 0}},
      {{"-separator", "<>", ""}, "SELECT r1,r2 FROM R;", {"Open<>O1\r\nit's<>\r\n", "", 0}},
      {{"-line", "", "SELECT r1,r2 FROM R;"},
       "",
       {"   r1 = Open\r\n   r2 = O1\r\n\r\n   r1 = it's\r\n   r2 = \r\n", "", 0}},
      {{"-line", "", "SELECT r1, ' '||r2 AS longest FROM R WHERE r2<>''; SELECT 1"},
       "",
       {"     r1 = Open\r\nlongest =  O1\r\n\r\n    1 = 1\r\n", "", 0}},
      {{"-line", ""}, "SELECT 1;\nSELECT 2;\n", {"    1 = 1\r\n    2 = 2\r\n", "", 0}},
      {{"-line", "", "SELECT R.r2 FROM R, R x WHERE R.r1=x.r1 LIMIT 1"},
       "",
       {" R.r2 = O1\r\n", "", 0}},
      {{"-foo", "", "SELECT 1"},
       "",
       {"", "sqlite: unknown option: -foo\r\nUse -help for a list of options.\r\n", 1}},
  };
  for (const auto& expected : cases) {
    SCOPED_TRACE(testing::PrintToString(expected.words) + expected.script);
    EXPECT_EQ(world.Run(expected.words, expected.script), expected.outcome);
  }
}

TEST(SqliteShell, ReportsFailuresOfAScriptInItsOutputAndGoesOn) {
  const ShellWorld world;
  ASSERT_EQ(world.Script(kReference), "");
  const struct {
    const char* script;
    const char* output;
  } cases[] = {
      {"SELECT 1; SELECT bad; SELECT 2;\r\nSELECT 3;\r\n",
       "1\nSELECT 1; SELECT bad; SELECT 2;\nSQL error: no such column: bad\n3\n"},
      {"SELECT\r\n bad;\r\n", "SELECT\n bad;\nSQL error: no such column: bad\n"},
      {"SELECT * FROM Q;", "SELECT * FROM Q;\nSQL error: no such table: Q\n"},
      {"CREATE INDEX iq ON Q(a);", "CREATE INDEX iq ON Q(a);\nSQL error: no such table: Q\n"},
      {"CREATE TABLE R(a);", "CREATE TABLE R(a);\nSQL error: table R already exists\n"},
      {"CREATE INDEX irm ON R(r2);",
       "CREATE INDEX irm ON R(r2);\nSQL error: index irm already exists\n"},
      {"CREATE INDEX z ON R(zz);",
       "CREATE INDEX z ON R(zz);\nSQL error: table R has no column named zz\n"},
      {"CREATE INDEX z ON R(\"zz\");",
       "CREATE INDEX z ON R(\"zz\");\nSQL error: table R has no column named zz\n"},
      {"INSERT INTO R VALUES ('a');",
       "INSERT INTO R VALUES ('a');\nSQL error: table R has 2 columns but 1 values were "
       "supplied\n"},
      {"SELEKT 1;", "SELEKT 1;\nSQL error: near \"SELEKT\": syntax error\n"},
      {"(SELECT 1);", "(SELECT 1);\nSQL error: near \"(\": syntax error\n"},
      {"BEGIN TRANSACTION t u;", "BEGIN TRANSACTION t u;\nSQL error: near \"u\": syntax error\n"},
      {"BEGIN; BEGIN TRANSACTION;",
       "BEGIN; BEGIN TRANSACTION;\nSQL error: cannot start a transaction within a transaction\n"},
      {"end;", "end;\nSQL error: cannot commit - no transaction is active\n"},
      {"ROLLBACK TRANSACTION t;",
       "ROLLBACK TRANSACTION t;\nSQL error: cannot rollback - no transaction is active\n"},
      {"INSERT INTO Q VALUES ('');", "INSERT INTO Q VALUES ('');\nSQL error: no such table: Q\n"},
      {"UPDATE R SET zz='' WHERE r1='';",
       "UPDATE R SET zz='' WHERE r1='';\nSQL error: no such column: zz\n"},
      {"INSERT INTO sqlite_master VALUES ('');",
       "INSERT INTO sqlite_master VALUES ('');\n"
       "SQL error: table sqlite_master may not be modified\n"},
      {"\xEF\xBB\xBF"
       "BEGIN;",
       "\xEF\xBB\xBF"
       "BEGIN;\nSQL error: near \"\xEF\xBB\xBF"
       "BEGIN\": syntax error\n"},
      {"SELECT 1;\nINSERT INTO R VALUES ('a','it's');\nSELECT 2;\nSELECT 3;\r\n",
       "1\nIncomplete SQL: INSERT INTO R VALUES ('a','it's');\nSELECT 2;\nSELECT 3;\n"},
  };
  for (const auto& expected : cases) {
    SCOPED_TRACE(expected.script);
    EXPECT_EQ(world.Script(expected.script), expected.output);
    EXPECT_EQ(world.Run({""}, expected.script).code, 0);
  }
  EXPECT_EQ(world.Select("SELECT count(*) FROM R"), "2\n");
}

TEST(SqliteShell, StopsAtAFailedStatementOfTheCommandLine) {
  const ShellWorld world;
  EXPECT_EQ(world.Run({"", "SELECT 1; SELECT bad; SELECT 2"}),
            (ShellOutcome{"1\r\n", "SQL error: no such column: bad\r\n", 1}));
}

TEST(SqliteShell, ReportsADatabaseThatCannotBeOpened) {
  const ShellWorld world;
  std::filesystem::create_directory(world.Folder().Path() / "folder");
  test::WriteBytes(world.Folder().File("foreign"), std::string(1024, 'x'));
  const std::string missing = test::SystemPath("DIR/missing/w.db");
  const struct {
    const char* name;
    std::string shown, reason;
  } cases[] = {
      {"missing/w.db", missing, "unable to open database: " + missing},
      {"folder", test::SystemPath("DIR/folder"), "disk I/O error"},
      {"foreign", test::SystemPath("DIR/foreign"), "file is encrypted or is not a database"},
  };
  for (const auto& [name, shown, reason] : cases) {
    const std::string path = test::SystemPath((world.Folder().Path() / name).string());
    const ShellOutcome outcome = {
        "", "Unable to open database \"" + shown + "\": " + reason + "\r\n", 1};
    EXPECT_EQ(world.Run({path, "SELECT 1"}), outcome);
    EXPECT_EQ(world.Run({path}, "SELECT 1;\nSELECT 2;\n"), outcome);
  }
}

TEST(SqliteShell, MakesADatabaseWithItsFirstStatement) {
  const struct {
    const char* script;
    const char* files;
    std::uintmax_t size;
  } cases[] = {
      {"", "", 0},
      {"-- nothing\r\n\r\n", "", 0},
      {"SELECT 1;", "w.db", 0},
      {"SELECT bad;", "w.db", 0},
      {"BEGIN;\nCREATE TABLE R(a);\nINSERT INTO R VALUES ('a');\n", "w.db", 0},
      {"BEGIN; COMMIT;", "w.db", 2048},
  };
  for (const auto& expected : cases) {
    SCOPED_TRACE(expected.script);
    const ShellWorld world;
    EXPECT_EQ(world.Run({""}, expected.script).error, "");
    EXPECT_EQ(world.Folder().Listing(), expected.files);
    if (*expected.files != '\0') {
      EXPECT_EQ(std::filesystem::file_size(world.DatabasePath()), expected.size);
    }
  }
}

TEST(SqliteShell, KeepsWhatATransactionDidBesidesItsFailures) {
  const ShellWorld world;
  ASSERT_EQ(world.Script(kReference), "");
  EXPECT_EQ(world.Script(kReference),
            "CREATE TABLE R(r1 TEXT,r2 TEXT);\nSQL error: table R already exists\n"
            "CREATE INDEX irm ON R(r1);\nSQL error: index irm already exists\n");
  EXPECT_EQ(world.Select("SELECT r1 FROM R;"), "Open\nit's\nOpen\nit's\n");

  const std::string before = test::ReadBytes(world.Folder().File("w.db"));
  EXPECT_EQ(world.Script("BEGIN;\nINSERT INTO R VALUES ('x','y');\nCREATE INDEX i2 ON R(r2);\n"),
            "");
  EXPECT_EQ(world.Run({"", "BEGIN; INSERT INTO R VALUES ('x','y')"}).code, 0);
  EXPECT_EQ(test::ReadBytes(world.Folder().File("w.db")), before);
  EXPECT_EQ(world.Folder().Listing(), "w.db");
}

TEST(SqliteShell, RefusesWhatNoScriptNeeds) {
  const ShellWorld world;
  ASSERT_EQ(world.Script(kReference), "");
  const std::string before = test::ReadBytes(world.Folder().File("w.db"));
  const struct {
    const char* statement;
    const char* failure;
  } cases[] = {
      {"VACUUM", "VACUUM is not supported"},
      {"pragma integrity_check", "PRAGMA is not supported"},
      {"DELETE FROM R", "DELETE is not supported"},
      {"DROP TABLE R", "DROP is not supported"},
      {"EXPLAIN SELECT 1", "EXPLAIN is not supported"},
      {"CREATE VIEW v AS SELECT r1 FROM R", "CREATE VIEW is not supported"},
      {"create /**/ trigger t INSERT ON R BEGIN SELECT 1; END", "CREATE TRIGGER is not supported"},
      {"CREATE TEMP TABLE t(a)", "CREATE TEMP is not supported"},
      {"CREATE TABLE IF NOT EXISTS t(a)", "IF NOT EXISTS is not supported"},
      {"CREATE TABLE \"t x\" AS SELECT r1 FROM R", "CREATE TABLE AS SELECT is not supported"},
      {"CREATE UNIQUE INDEX i ON R(r1)", "CREATE UNIQUE INDEX is not supported"},
      {"CREATE TABLE t(a INTEGER PRIMARY KEY)", "PRIMARY KEY and UNIQUE are not supported"},
      {"CREATE TABLE t(a TEXT, UNIQUE(a))", "PRIMARY KEY and UNIQUE are not supported"},
      {"CREATE TABLE temp.t(a)", "CREATE TEMP is not supported"},
      {"INSERT OR REPLACE INTO R VALUES ('a','b')",
       "only INSERT INTO table VALUES ('text',...) is supported"},
      {"INSERT INTO R SELECT r2,r1 FROM R",
       "only INSERT INTO table VALUES ('text',...) is supported"},
      {"INSERT INTO R(r1) VALUES ('a')", "only INSERT INTO table VALUES ('text',...) is supported"},
      {"UPDATE R SET r2='a'",
       "only UPDATE table SET column='text' WHERE column='text' is supported"},
      {"UPDATE R SET r1='a' WHERE r2='b'",
       "only text columns without an index can be updated, by another text column"},
  };
  for (const auto& refused : cases) {
    SCOPED_TRACE(refused.statement);
    EXPECT_EQ(world.Run({"", refused.statement}),
              (ShellOutcome{"", std::string("SQL error: ") + refused.failure + "\r\n", 1}));
    EXPECT_TRUE(test::ReadBytes(world.Folder().File("w.db")) == before);
  }
}

TEST(SqliteShell, ReadsWhatItDoesNotMakeAndKeepsIt) {
  const ShellWorld world;
  ASSERT_EQ(world.Script(kReference), "");
  const CatalogObject objects[] = {
      {"view", "v", "v", 0, "CREATE VIEW v AS SELECT a FROM P, R WHERE id=2 AND r1='Open'"},
      {"table", "P", "P", 3, "CREATE TABLE P(id INTEGER PRIMARY KEY,a TEXT)"},
      {"table", "U", "U", 3, "CREATE TABLE U(a TEXT,b TEXT UNIQUE)"},
      {"trigger", "t", "R", 0, "CREATE TRIGGER t INSERT ON R BEGIN SELECT 1; END"},
  };
  for (const CatalogObject& object : objects) {
    test::AddForeign(world.DatabasePath(), object);
  }
  EXPECT_EQ(world.Select("SELECT id,a FROM P; SELECT * FROM v; SELECT r1,r2 FROM R"),
            "1|O1\n2|\n\nOpen|O1\nit's|\n");
  for (const std::string before : {"", "BEGIN;\n"}) {
    EXPECT_EQ(world.Script(before + "INSERT INTO P VALUES ('','');\n"
                                    "INSERT INTO U VALUES ('','');\n"
                                    "UPDATE R SET r2='' WHERE r1='Open';\n"),
              "INSERT INTO P VALUES ('','');\n"
              "SQL error: table P has a unique key: it can only be read\n"
              "INSERT INTO U VALUES ('','');\n"
              "SQL error: table U has a unique key: it can only be read\n"
              "UPDATE R SET r2='' WHERE r1='Open';\n"
              "SQL error: table R has a trigger: it can only be read\n");
  }
  EXPECT_EQ(world.Script("CREATE TABLE S(so TEXT);\nINSERT INTO S VALUES ('a');\n"
                         "SELECT so FROM S;\nSELECT name FROM sqlite_master;\n"),
            "a\nR\nirm\nv\nP\nU\nt\nS\n");
}

TEST(SqliteShell, TakesPlainStatementsInAnySpelling) {
  const ShellWorld world;
  EXPECT_EQ(world.Script("-- first\r\n  create TABLE  R ( r1 TEXT , r2 TEXT )  ;\r\n"
                         "insert into r values('a',NULL);\n"
                         "BEGIN;\nINSERT INTO \"R\" VALUES ( 'b', 'it''s' );\n"
                         "update R set r2 = 'new' where r1 = 'a';\nend transaction;\n"
                         "SELECT r1,r2 FROM R; SELECT sql FROM sqlite_master;\n"),
            "a|new\nb|it's\ncreate TABLE  R ( r1 TEXT , r2 TEXT )\n");
}

TEST(SqliteShell, ReportsDamageByItsExitCodeWhoeverReadsTheTable) {
  const ShellWorld world;
  ASSERT_EQ(world.Script(kReference), "");
  const std::string bytes = test::ReadBytes(world.Folder().File("w.db"));
  test::WriteBytes(world.Folder().File("w.db"), bytes.substr(0, 2048) + std::string(2048, 'x'));
  for (const char* query : {"SELECT r1,r2 FROM R;", "SELECT r2 FROM R WHERE r1='Open'"}) {
    EXPECT_EQ(world.Run({"", query}),
              (ShellOutcome{"", "SQL error: database disk image is malformed\r\n", 74}));
  }
}

TEST(SqliteShell, EndsAScriptWhenTheDiskIsFull) {
  const struct {
    int rows;
    const char* failed;
  } cases[] = {{200, "COMMIT;\r\n"}, {20'000, "INSERT INTO R VALUES "}};
  for (const auto& expected : cases) {
    const ShellWorld world;
    ASSERT_EQ(world.Script(kReference), "");
    const std::string before = test::ReadBytes(world.Folder().File("w.db"));
    std::string script = "BEGIN;\n";
    for (int i = 0; i < expected.rows; ++i) {
      script += "INSERT INTO R VALUES ('" + std::string(500, 'x') + "','');\n";
    }
    script += "COMMIT;\nSELECT 1;\n";
    ShellOutcome outcome;
    {
      const test::FileSizeLimit limit(64 * 1024);
      outcome = world.Run({""}, script);
    }
    EXPECT_EQ(outcome.code, 74);
    EXPECT_EQ(outcome.output.find(expected.failed), 0U) << outcome.output;
    EXPECT_TRUE(outcome.output.ends_with("\r\nSQL error: database or disk is full\r\n"));
    EXPECT_EQ(outcome.output.find("SQL error"), outcome.output.rfind("SQL error"));
    EXPECT_EQ(test::ReadBytes(world.Folder().File("w.db")), before);
    EXPECT_EQ(world.Folder().Listing(), "w.db");
  }
}

TEST(SqliteShell, TakesManyStatementsOnOneLine) {
  const ShellWorld world;
  std::string line = "CREATE TABLE R(r1 TEXT,r2 TEXT); BEGIN;";
  for (int i = 0; i < 20'000; ++i) {
    line += i % 2 == 0 ? " INSERT INTO R VALUES ('a','');" : "insert into R values ('b','');";
  }
  EXPECT_EQ(world.Script(line + "COMMIT;\n"), "");
  EXPECT_EQ(world.Select("SELECT r1, count(*) FROM R GROUP BY r1"), "a|10000\nb|10000\n");
}

TEST(SqliteShell, ReportsARowThatIsTooLong) {
  const std::string head = "INSERT INTO R VALUES ('";
  const std::string longest(1'048'565, 'x');
  for (const char* end : {"','');", "', '');"}) {
    SCOPED_TRACE(end);
    const ShellWorld world;
    const std::string script =
        "BEGIN;\n" + head + longest + end + "\n" + head + longest + "x" + end + "\nCOMMIT;\n";
    ASSERT_EQ(world.Script("CREATE TABLE R(r1 TEXT,r2 TEXT);"), "");
    EXPECT_EQ(world.Script(script),
              head + longest + "x" + end + "\nSQL error: too much data for one table row\n");
    EXPECT_EQ(world.Select("SELECT length(r1) FROM R"), "1048565\n");
  }
}

TEST(SqliteShell, BytesOfTextsComeThroughUnchanged) {
  using namespace std::string_literals;
  const ShellWorld world;
  ASSERT_EQ(world.Script(
                "CREATE TABLE R(r1 TEXT,r2 TEXT);BEGIN;\n"
                "INSERT INTO R VALUES ('\x81\x5C\x1A;--','\x80\xFF\t\\');\n"
                "insert into R values ('\x81\x5C\x1A;--','\x80\xFF\t\\');\n"
                "INSERT INTO R VALUES ('a\0b''c','\0');\ninsert into R values ('a\0b''c','\0');\n"
                "COMMIT;\n"s),
            "");
  const std::string row = "\x81\x5C\x1A;--|\x80\xFF\t\\\n";
  EXPECT_EQ(world.Select("SELECT r1,r2 FROM R;"), row + row + "a|\na|\n");
  EXPECT_EQ(world.Select("SELECT r1, r2 FROM R;"), row + row + "a|\na|\n");
}

}  // namespace
}  // namespace lexmill::platform::sqlite
