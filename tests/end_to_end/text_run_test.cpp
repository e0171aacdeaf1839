// SPDX-License-Identifier: MIT
// Runs that end in a text.
#include "tests/end_to_end/whole_run.h"
#include "tests/support/readable_text.h"

namespace lexmill::test {
namespace {

using TextRun = WholeRun;

constexpr const char* kReference = "1:Open\n打开\n\n2:It's\n它's\n";

TEST_F(TextRun, KeepsEveryEntryInItsPlace) {
  EXPECT_EQ(ResultOf("a remark\n"
                     "101:&Open...\n&Open...\n"
                     "\n"
                     "102:Save\n保存\n"
                     "103:  Open\n  Open\n"
                     "103:Unknown\nUnknown\n"
                     "104:Nothing\n\n",
                     kReference),
            "\n101:&Open...\n打开(&O)...\n"
            "\n102:Save\n保存\n"
            "\n103:  Open\n  打开\n"
            "\n103:Unknown\nUnknown\n"
            "\n104:Nothing\n\n");
  ExpectNoTemporaryFiles();
}

TEST_F(TextRun, UpdatesEveryEntryOfASource) {
  EXPECT_EQ(ResultOf("1:Open\nOpen\n2:Open\n开启\n3:It's\nIt's\n4:Open\n\n", kReference),
            "\n1:Open\n打开\n\n2:Open\n打开\n\n3:It's\n它's\n\n4:Open\n打开\n");
}

TEST_F(TextRun, TakesTheLastOfSeveralTranslations) {
  EXPECT_EQ(ResultOf("1:Open\nOpen\n", "1:Open\n打开\n2:Open\n开启\n"), "\n1:Open\n开启\n");
}

TEST_F(TextRun, ReadsItsOwnResult) {
  const std::string once = ResultOf("1:Open\nOpen\n2:Help\nHelp\n", kReference);
  EXPECT_EQ(ResultOf(once, "1:Help\n帮助\n"), "\n1:Open\n打开\n\n2:Help\n帮助\n");
}

TEST_F(TextRun, LeavesNineFilesOnRequestEightWithAPurifiedReference) {
  const auto count = [this] {
    int temporary = 0;
    for (const auto& entry : std::filesystem::directory_iterator(world_.folder.Path())) {
      temporary += entry.path().filename().string().starts_with("rad") ? 1 : 0;
    }
    return temporary;
  };
  world_.window.chkaKeepTmpFile.Value(1);
  world_.window.chkSaveRefDB.Value(1);
  world_.window.txtSaveRefDB.Text(Dictionary("saved.db"));
  std::ignore = ResultOf("1:Open\nOpen\n", "Open\t打开\n");
  EXPECT_EQ(count(), 9);
  Press("todo", "saved.db", "again");
  EXPECT_EQ(FromAnsiBytes(ReadBytes(Dictionary("again"))), "\n1:Open\n打开\n");
  EXPECT_EQ(count(), 9 + 8);
}

TEST_F(TextRun, ShowsAHeadLineWithoutItsTarget) {
  std::ignore = ResultOf("1:a\na\n2:b\nb\n3:c\nc\n4:d\nd\n5:e\ne\n6:Open\n", kReference);
  // The stage ends at the missing line, so that table O stays empty and the listing too.
  ASSERT_EQ(world_.session.messages.size(), 2U);
  EXPECT_EQ(Readable(world_.session.messages[0].text),
            "错误:62\r\n输入超出了文件尾\r\n源代码位置: Class Module 'clsLexUPB2' -> 'DoItNow'");
  EXPECT_EQ(Readable(world_.session.messages[1].text),
            "错误:62\r\n输入超出了文件尾\r\n源代码位置: Class Module 'clsLexGenOO' -> 'Start'");
  EXPECT_EQ(ReadBytes(Dictionary("final")), "\r\n");
  world_.session.messages.clear();
}

}  // namespace
}  // namespace lexmill::test
