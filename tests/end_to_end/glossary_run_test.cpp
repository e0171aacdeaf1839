// SPDX-License-Identifier: MIT
// Runs that end in a glossary.
#include "tests/end_to_end/whole_run.h"
#include "tests/support/readable_text.h"

namespace lexmill::test {
namespace {

using GlossaryRun = WholeRun;

constexpr const char* kReference =
    "9 1\t4 2\n"
    "&Open\t打开(&O)\n"
    "Save As...\t另存为…\n"
    "Options\t选项\n"
    "Options\t设置\n";

TEST_F(GlossaryRun, DressesTheTranslationLikeTheString) {
  EXPECT_EQ(ResultOf("9 1\t4 2\n"
                     "  &Open...\\tCtrl+O\t  &Open...\\tCtrl+O\n"
                     "Save &As:\tSave &As:\n"
                     "Already\t已经\n"
                     "Unknown\tUnknown\n",
                     kReference),
            "9 1\t4 2\n"
            "  &Open...\\tCtrl+O\t  打开(&O)...\\tCtrl+O\n"
            "Save &As:\t另存为(&A):\n");
  ExpectNoTemporaryFiles();
}

TEST_F(GlossaryRun, GivesEachTranslationOfAString) {
  EXPECT_EQ(ResultOf("Options\tOptions\nOptions\tOptions\n", kReference),
            "9 1\t4 2\nOptions\t选项\nOptions\t设置\n");
}

TEST_F(GlossaryRun, ServesASavedPurifiedDatabaseAndSavesNoneOverADictionary) {
  world_.window.chkSaveRefDB.Value(1);
  world_.window.txtSaveRefDB.Text(Dictionary("saved.db"));
  const std::string first = ResultOf("&Open...\t&Open...\n", kReference);
  EXPECT_EQ(first, "9 1\t4 2\n&Open...\t打开(&O)...\n");

  Press("todo", "saved.db", "again");
  // The database names no languages, and the untranslated glossary has no head here.
  EXPECT_EQ(FromAnsiBytes(ReadBytes(Dictionary("again"))), "&Open...\t打开(&O)...\n");
  EXPECT_EQ(Readable(world_.window.lblState(0).Caption()), "");
  ExpectNoTemporaryFiles();

  world_.window.txtSaveRefDB.Text(Dictionary("todo"));
  Press("todo", "refer", "final");
  EXPECT_TRUE(Readable(world_.session.messages.front().text).starts_with("错误:1\r\n"));
  world_.session.messages.clear();
  EXPECT_EQ(FromAnsiBytes(ReadBytes(Dictionary("todo"))), "&Open...\t&Open...\n");
}

TEST_F(GlossaryRun, TakesTextOfEveryKindThroughTheDatabase) {
  constexpr const char* kHard =
      "It's \"x\" 'y''\t甲'乙''丙\n"
      "back\\\tslash\\\n"
      "; -- /* %d\t朱镕基;--\n";
  EXPECT_EQ(ResultOf("It's \"x\" 'y''\tIt's \"x\" 'y''\n"
                     "back\\\tback\\\n"
                     "; -- /* %d\t; -- /* %d\n",
                     kHard),
            "It's \"x\" 'y''\t甲'乙''丙\n"
            "back\\\tslash\\\n"
            "; -- /* %d\t朱镕基;--\n");
}

TEST_F(GlossaryRun, KeepsBytesThatAreNoText) {
  WriteBytes(Dictionary("todo"), "a\xFE(\ta\xFE(\r\n");
  WriteBytes(Dictionary("refer"),
             "a\xFE(\t\x81\x7F"
             "b\r\n");
  Press("todo", "refer", "final");
  EXPECT_EQ(ReadBytes(Dictionary("final")),
            "a\xFE(\t\x81\x7F"
            "b\r\n");
}

TEST_F(GlossaryRun, ShowsTheRowsAndKeepsThePaths) {
  std::ignore = ResultOf("&Open\t&Open\n", kReference);
  for (std::int16_t row = 0; row < 4; ++row) {
    EXPECT_TRUE(Readable(world_.window.lblState(row).Caption()).starts_with("时间: ")) << row;
    EXPECT_EQ(world_.window.lblState(row).BackColor(), 0xEFD3C2U);
  }
  EXPECT_EQ(Readable(world_.window.cboRefer.List(0)), Readable(Dictionary("refer")));
  EXPECT_TRUE(world_.window.cmdStart.Visible());
  EXPECT_EQ(world_.window.chkAdvMode.Value(), 0);
}

}  // namespace
}  // namespace lexmill::test
