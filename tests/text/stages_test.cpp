// SPDX-License-Identifier: MIT
// The three stages for texts, from file to file.
#include <string>

#include <gtest/gtest.h>

#include "tests/support/stage_world.h"
#include "text/clsLexUPB1.h"
#include "text/clsLexUPB2.h"
#include "text/clsLexUPB3.h"

namespace lexmill {
namespace {

const std::string kHeadOfO = "BEGIN TRANSACTION;\nCREATE TABLE O(o0 TEXT,o1 TEXT,o2 TEXT);\n";
const std::string kTailOfO = "CREATE INDEX ioo ON O(o1);\nCOMMIT;\n";

using test::kHeadOfR;
using test::kHeadOfS;
using test::kTailOfR;
using test::kTailOfS;
using TextStages = test::StageWorld;

TEST_F(TextStages, PurifyAReference) {
  RunOptions().txtLenLimit = 8;
  EXPECT_EQ(OutputFor<clsLexUPB1>("a title\n"
                                  "\n"
                                  "1:&Open...\n"
                                  "打开(&O)...\n"
                                  "2:equal\n"
                                  "equal\n"
                                  "3:12345678\n"
                                  "八\n"
                                  "4:123456789\n"
                                  "九\n"
                                  "5:empty\n"
                                  "\n"
                                  "6:a\tb\tc\n"
                                  "it's\n"),
            kHeadOfR +
                "INSERT INTO R VALUES ('Open','打开');\n"
                "INSERT INTO R VALUES ('12345678','八');\n"
                "INSERT INTO R VALUES ('empty','');\n"
                "INSERT INTO R VALUES ('a\tb\tc','it''s');\n" +
                kTailOfR);
}

TEST_F(TextStages, KeepAllEntriesAndTakeTheUntranslatedOnesApart) {
  RunOptions().txtLenLimit = 10;
  EXPECT_EQ(OutputFor<clsLexUPB2>("a remark without any colon\n"
                                  "101:&Open...\n"
                                  "&Open...\n"
                                  "\n"
                                  "102:Save\n"
                                  "保存\n"
                                  "102:Don't\n"
                                  "Don't\n"
                                  "103:\n"
                                  "\n"
                                  "104:empty\n"
                                  "\n"
                                  "105:over length\n"
                                  "over length\n"),
            kHeadOfO +
                "INSERT INTO O VALUES ('101:&Open...','&Open...','&Open...');\n"
                "INSERT INTO O VALUES ('102:Save','Save','保存');\n"
                "INSERT INTO O VALUES ('102:Don''t','Don''t','Don''t');\n"
                "INSERT INTO O VALUES ('103:','','');\n"
                "INSERT INTO O VALUES ('104:empty','empty','');\n"
                "INSERT INTO O VALUES ('105:over length','over length','over length');\n" +
                kTailOfO);
  EXPECT_EQ(SecondOutput(), kHeadOfS +
                                "INSERT INTO S VALUES ('&Open...','','Open','(&O)','...');\n"
                                "INSERT INTO S VALUES ('Don''t','','Don''t','','');\n"
                                "INSERT INTO S VALUES ('','','','','');\n" +
                                kTailOfS);
}

TEST_F(TextStages, WriteCompleteScriptsForTextsWithoutAnEntry) {
  EXPECT_EQ(OutputFor<clsLexUPB1>("a title\n"), kHeadOfR + kTailOfR);
  EXPECT_EQ(OutputFor<clsLexUPB2>("a title\n"), kHeadOfO + kTailOfO);
  EXPECT_EQ(SecondOutput(), kHeadOfS + kTailOfS);
}

TEST_F(TextStages, UpdateTheEntriesThatTheRunHasTranslated) {
  struct Case {
    const char* name;
    bool withoutHotKeys;
    const char* ready;
    std::string updates;
  };
  const Case cases[] = {
      {"a row", false, "  &Open...\t  \t打开\t(&O)\t...\n",
       "UPDATE O SET o2='  打开(&O)...' WHERE o1='  &Open...';\n"},
      {"without hot keys", true, "&Open...\t \t打开\t(&O)\t...\n",
       "UPDATE O SET o2=' 打开...' WHERE o1='&Open...';\n"},
      {"apostrophes", false, "Don't\t'\t别\t(&')\t''\n",
       "UPDATE O SET o2='''别(&'')''''' WHERE o1='Don''t';\n"},
      {"an empty translation", false, "a\t\t\t\t\n", "UPDATE O SET o2='' WHERE o1='a';\n"},
      {"surplus columns", false, "a\tb\tc\td\te\tf\n", ""},
      {"no row", false, "", ""},
  };
  for (const Case& row : cases) {
    SCOPED_TRACE(row.name);
    RunOptions().chkNotAddANDX = row.withoutHotKeys;
    EXPECT_EQ(OutputFor<clsLexUPB3>(row.ready), "BEGIN TRANSACTION;\n" + row.updates + "COMMIT;\n");
  }
}

TEST_F(TextStages, ReadADictionaryInItsOwnEncoding) {
  const std::u16string in = folder.File("in");
  TheRun().dictionaries[in].encoding = platform::TextEncoding::Utf8;
  test::WriteBytes(in, "1:打\r\n打\r\n2:Open\r\n打开\r\n");
  Run<clsLexUPB1>(in, folder.File("out"));
  EXPECT_EQ(Output(), kHeadOfR + "INSERT INTO R VALUES ('Open','打开');\n" + kTailOfR);
  Run<clsLexUPB2>(in, folder.File("out"));
  EXPECT_EQ(SecondOutput(), kHeadOfS + "INSERT INTO S VALUES ('打','','打','','');\n" + kTailOfS);
}

// The clock is looked at twice at the start, once for each of the 20 lines, once more when 500 ms
// are passed, and once at the end.
TEST_F(TextStages, LetStarsGrowAtMostEvery500Milliseconds) {
  struct Case {
    const char16_t* before;
    const char* captions;
  };
  const Case cases[] = {
      {u"", "* ** ***"},
      {u"12345", "12345* * **"},
      {u"123456", "* ** ***"},
  };
  std::string lines;
  for (int i = 0; i < 20; ++i) {
    lines += "other\r\n";
  }
  test::WriteBytes(folder.File("in"), lines);
  std::string captions;
  CollectCaptions(captions);
  const auto run = [&]<class Stage>(const Case& row) {
    LetTheClockRun();
    captions.clear();
    label.Caption(row.before);
    EXPECT_EQ(Run<Stage>(folder.File("in"), folder.File("out")), 2500);
    EXPECT_EQ(captions, row.captions);
  };
  for (const Case& row : cases) {
    run.operator()<clsLexUPB1>(row);
    run.operator()<clsLexUPB2>(row);
  }
}

TEST_F(TextStages, ShowAFileThatEndsTooSoonAndLeaveWhatWasWritten) {
  const std::string pastTheEnd = "错误:62\n输入超出了文件尾\n源代码位置: Class Module '";
  EXPECT_EQ(OutputFor<clsLexUPB1>(""), kHeadOfR);
  EXPECT_EQ(Messages(), pastTheEnd + "clsLexUPB1' -> 'DoItNow'");
  platform::headless::TheSession() = {};
  EXPECT_EQ(OutputFor<clsLexUPB2>("1:a\na\n2:b\n"),
            kHeadOfO + "INSERT INTO O VALUES ('1:a','a','a');\n");
  EXPECT_EQ(SecondOutput(), kHeadOfS + "INSERT INTO S VALUES ('a','','a','','');\n");
  EXPECT_EQ(Messages(), pastTheEnd + "clsLexUPB2' -> 'DoItNow'");
}

TEST_F(TextStages, ShowAMissingInputOrFolder) {
  const auto run = [this]<class Stage>(const std::string& name) {
    platform::headless::TheSession() = {};
    LetTheClockRun();
    const std::string place = "\n源代码位置: Class Module '" + name + "' -> 'DoItNow'";
    EXPECT_EQ(Run<Stage>(folder.File("none"), folder.File("out")), 0);
    EXPECT_EQ(Run<Stage>(folder.File("none"), folder.File("none/out")), 0);
    EXPECT_EQ(Messages(), "错误:53\n文件未找到" + place + "\n\n错误:76\n路径未找到" + place);
    EXPECT_EQ(Output(), "");
  };
  run.operator()<clsLexUPB1>("clsLexUPB1");
  run.operator()<clsLexUPB2>("clsLexUPB2");
  run.operator()<clsLexUPB3>("clsLexUPB3");
}

}  // namespace
}  // namespace lexmill
