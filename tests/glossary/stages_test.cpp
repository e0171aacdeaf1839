// SPDX-License-Identifier: MIT
// The three stages for glossaries, from file to file.
#include <string>

#include <gtest/gtest.h>

#include "glossary/clsLexGLO1.h"
#include "glossary/clsLexGLO2.h"
#include "glossary/clsLexGLO3.h"
#include "tests/support/stage_world.h"

namespace lexmill {
namespace {

using test::kHeadOfR;
using test::kHeadOfS;
using test::kTailOfR;
using test::kTailOfS;
using GlossaryStages = test::StageWorld;

TEST_F(GlossaryStages, PurifyAReference) {
  EXPECT_EQ(OutputFor<clsLexGLO1>("9 1\t4 2\n"
                                  "&Open...\t打开(&O)...\n"
                                  "equal\tequal\n"
                                  "three\tfields\there\n"
                                  "\n"
                                  "no tab\n"
                                  "It's '&here'\t'在'这里\n"
                                  "&Open\tOpen\n"
                                  "&Open\tOpen\n"),
            kHeadOfR +
                "INSERT INTO R VALUES ('9 1','4 2');\n"
                "INSERT INTO R VALUES ('Open','打开');\n"
                "INSERT INTO R VALUES ('no tab','');\n"
                "INSERT INTO R VALUES ('It''s ''here''','''在''这里');\n"
                "INSERT INTO R VALUES ('Open','Open');\n"
                "INSERT INTO R VALUES ('Open','Open');\n" +
                kTailOfR);
}

TEST_F(GlossaryStages, TakeUntranslatedStringsApart) {
  RunOptions().chkaUpperCase = true;
  EXPECT_EQ(OutputFor<clsLexGLO2>("9 1\t4 2\n"
                                  "  &Open...\\tCtrl+O\t  &Open...\\tCtrl+O\n"
                                  "Save\t保存\n"
                                  "three\tthree\tthree\n"
                                  "no tab\n"
                                  "\n"
                                  "\t\n"
                                  "&'tis: \t&'tis: \n"),
            kHeadOfS +
                "INSERT INTO S VALUES ('  &Open...\\tCtrl+O','  ','OPEN','(&O)','...\\tCtrl+O');\n"
                "INSERT INTO S VALUES ('','','','','');\n"
                "INSERT INTO S VALUES ('&''tis: ','','''TIS','(&'')',': ');\n" +
                kTailOfS);
}

TEST_F(GlossaryStages, WriteCompleteScriptsForDictionariesWithoutAnEntry) {
  EXPECT_EQ(OutputFor<clsLexGLO1>(""), kHeadOfR + kTailOfR);
  EXPECT_EQ(OutputFor<clsLexGLO1>("equal\tequal\n"), kHeadOfR + kTailOfR);
  EXPECT_EQ(OutputFor<clsLexGLO2>(""), kHeadOfS + kTailOfS);
}

TEST_F(GlossaryStages, WriteTheTranslatedGlossary) {
  struct Case {
    const char* name;
    std::u16string languagePair;
    bool withoutHotKeys;
    const char* ready;
    const char* glossary;
  };
  const Case cases[] = {
      {"head line and row", u"9 1\t4 2", false,
       "  &Open...\\tCtrl+O\t  \t打开\t(&O)\t...\\tCtrl+O\n",
       "9 1\t4 2\n  &Open...\\tCtrl+O\t  打开(&O)...\\tCtrl+O\n"},
      {"without hot keys", u"", true, "&Open...\t \t打开\t(&O)\t...\n", "&Open...\t 打开...\n"},
      {"no row", u"9 1\t4 2", false, "", "9 1\t4 2\n"},
      {"nothing at all", u"", false, "", ""},
      {"empty columns", u"", false, "a\t\t\t\t\nb\t\t乙\t\t\n", "a\t\nb\t乙\n"},
      {"missing and surplus columns", u"", false, "a\t \t甲\nb\tc\td\te\tf\tg\n", "a\t 甲\n"},
      {"apostrophes", u"", false, "it's\t\t''\t(&')\t'\n", "it's\t''(&')'\n"},
      {"the file's order, repeated", u"", false, "b\t\t2\t\t\na\t\t1\t\t\nb\t\t3\t\t\n",
       "b\t2\na\t1\nb\t3\n"},
  };
  for (const Case& row : cases) {
    SCOPED_TRACE(row.name);
    TheRun().LanguagePair = row.languagePair;
    RunOptions().chkNotAddANDX = row.withoutHotKeys;
    EXPECT_EQ(OutputFor<clsLexGLO3>(row.ready), row.glossary);
  }
}

TEST_F(GlossaryStages, WriteTheResultInTheEncodingOfTheRun) {
  TheRun().resultEncoding = platform::TextEncoding::Utf8WithMark;
  test::WriteBytes(folder.File("in"), test::Ansi("Open\t\t打开\t\t\n"));
  Run<clsLexGLO3>(folder.File("in"), folder.File("out"));
  EXPECT_EQ(test::ReadBytes(folder.File("out")), "\xEF\xBB\xBFOpen\t打开\r\n");
}

// The clock is looked at twice at the start, once for each record, once more when 500 ms are
// passed, and once at the end. 20 records of 5 % each; dropped records count.
TEST_F(GlossaryStages, ShowThePercentageAtMostEvery500Milliseconds) {
  std::string records;
  for (int i = 0; i < 20; ++i) {
    records += "1\t2\t3\t4\t5\t6\r\n";
  }
  test::WriteBytes(folder.File("in"), records);
  std::string captions;
  CollectCaptions(captions);
  const auto run = [&]<class Stage>() {
    LetTheClockRun();
    captions.clear();
    EXPECT_EQ(Run<Stage>(folder.File("in"), folder.File("out")), 2500);
    EXPECT_EQ(captions, "30% 60% 90%");
  };
  run.operator()<clsLexGLO1>();
  run.operator()<clsLexGLO2>();
  run.operator()<clsLexGLO3>();
}

TEST_F(GlossaryStages, ShowAFailureAndLeaveWhatWasWritten) {
  struct Case {
    const char* name;
    std::u16string input;
    std::u16string output;
    const char* failure;
    const char* filesLeft;
  };
  test::WriteBytes(folder.File("in"), "x\tx\r\n");
  const Case cases[] = {
      {"no folder for the output", folder.File("in"), folder.File("none/out"), "76\n路径未找到",
       "in"},
      {"no input", folder.File("none"), folder.File("out"), "53\n文件未找到", "in out"},
      {"full disk", folder.File("in"), u"/dev/full", "61\n磁盘已满", "in"},
  };
  TheRun().LanguagePair = u"9 1\t4 2";
  const auto run = [this]<class Stage>(const Case& row, const std::string& name) {
    platform::headless::TheSession() = {};
    LetTheClockRun();
    EXPECT_EQ(Run<Stage>(row.input, row.output), 0);
    EXPECT_EQ(Messages(), std::string("错误:") + row.failure + "\n源代码位置: Class Module '" +
                              name + "' -> 'DoItNow'");
    EXPECT_EQ(folder.Listing(), row.filesLeft);
    std::filesystem::remove(folder.Path() / "out");
  };
  for (const Case& row : cases) {
    SCOPED_TRACE(row.name);
    run.operator()<clsLexGLO1>(row, "clsLexGLO1");
    run.operator()<clsLexGLO2>(row, "clsLexGLO2");
    run.operator()<clsLexGLO3>(row, "clsLexGLO3");
  }
}

TEST_F(GlossaryStages, ABadFragmentEndsThePurificationWhereItIsFirstUsed) {
  RunOptions().txtrAndXBK1 = u"(";
  EXPECT_EQ(OutputFor<clsLexGLO1>("Save\t保存\nOpen\t打开(&O)\nExit\t退出\n"),
            kHeadOfR + "INSERT INTO R VALUES ('Save','保存');\n");
  EXPECT_EQ(Messages(),
            "错误:5020\n正则表达式中缺少 ')'\n源代码位置: Class Module 'clsLexGLO1' -> 'DoItNow'");
}

}  // namespace
}  // namespace lexmill
