// SPDX-License-Identifier: MIT
#include "platform/sqlite/shell/arguments.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace lexmill::platform::sqlite {
namespace {

using Words = std::vector<std::string>;

TEST(SqliteArguments, GiveFormDatabaseAndStatement) {
  struct Case {
    Words words;
    OutputForm form;
    std::string separator;
    std::string database;
    std::optional<std::string> statement;
  };
  const Case cases[] = {
      {{"sqlite", "w.db"}, OutputForm::List, "|", "w.db", std::nullopt},
      {{"sqlite", "w.db", "SELECT 1"}, OutputForm::List, "|", "w.db", "SELECT 1"},
      {{"sqlite", "w.db", "-line", "rest"}, OutputForm::List, "|", "w.db", "-line"},
      {{"sqlite", "-separator", "\t", "w.db", ""}, OutputForm::List, "\t", "w.db", ""},
      {{"sqlite", "-separator", "", "w.db"}, OutputForm::List, "", "w.db", std::nullopt},
      {{"sqlite", "-separator", "-list", "w.db"}, OutputForm::List, "-list", "w.db", std::nullopt},
      {{"sqlite", "-separator", "0123456789012345678cut", "w.db"},
       OutputForm::List,
       "0123456789012345678",
       "w.db",
       std::nullopt},
      {{"sqlite", "-line", "w.db", "SELECT 1"}, OutputForm::Line, "|", "w.db", "SELECT 1"},
      {{"sqlite", "-line", "-list", "w.db"}, OutputForm::List, "|", "w.db", std::nullopt},
  };
  for (const Case& expected : cases) {
    SCOPED_TRACE(testing::PrintToString(expected.words));
    const auto arguments = ParseArguments(expected.words).arguments;
    ASSERT_TRUE(arguments);
    EXPECT_EQ(arguments->form, expected.form);
    EXPECT_EQ(arguments->separator, expected.separator);
    EXPECT_EQ(arguments->database, expected.database);
    EXPECT_EQ(arguments->statement, expected.statement);
  }
}

TEST(SqliteArguments, ComplainsOfWhatItDoesNotKnow) {
  const ParsedArguments unknown = ParseArguments(Words{"./sqlite", "-foo", "w.db"});
  EXPECT_FALSE(unknown.arguments);
  EXPECT_EQ(unknown.complaint,
            "./sqlite: unknown option: -foo\nUse -help for a list of options.\n");
  for (const Words& words : {Words{"sqlite"}, Words{"sqlite", "-line"}, Words{"sqlite", "-help"},
                             Words{"sqlite", "-separator"}, Words{"sqlite", "-separator", "\t"}}) {
    SCOPED_TRACE(testing::PrintToString(words));
    const ParsedArguments parsed = ParseArguments(words);
    EXPECT_FALSE(parsed.arguments);
    EXPECT_NE(parsed.complaint, "");
  }
}

}  // namespace
}  // namespace lexmill::platform::sqlite
