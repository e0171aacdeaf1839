// SPDX-License-Identifier: MIT
#include "pipeline/batch_script.h"

#include <gtest/gtest.h>

#include "platform/host/clock.h"
#include "run/shared/option_set.h"
#include "run/shared/run_state.h"
#include "tests/support/failures.h"
#include "tests/support/headless_window.h"
#include "tests/support/readable_text.h"

namespace lexmill {
namespace {

using test::Readable;

// Names come out as rad00001.tmp, rad00002.tmp … in the order in which they are drawn.
class BatchScript : public testing::Test {
 protected:
  BatchScript() {
    platform::OverrideClock({.tickCount = {}, .dayAndHour = u"1714", .random = [this] {
                               return ++drawn_ / 1048576.0;
                             }});
    TheRun().reference = u"/dict/ref.glo";
  }
  ~BatchScript() override { platform::OverrideClock({}); }

  std::string GlossaryScript() {
    GlossaryRunFiles files;
    BuildBatScript(files);
    return Lines(files.sBatFile);
  }

  // The script as UTF-8 with LF; "⇥" for a TAB, which is easy to overlook.
  static std::string Lines(const std::u16string& path) {
    const std::string bytes = test::ReadBytes(path);
    EXPECT_EQ(bytes.find("\r\n") == std::string::npos, bytes.empty());
    std::string lines = test::FromAnsiBytes(bytes);
    for (std::size_t at = 0; (at = lines.find('\t')) != std::string::npos;) {
      lines.replace(at, 1, "⇥");
    }
    return lines;
  }

  test::HeadlessWindow world_;
  int drawn_ = 0;
};

TEST_F(BatchScript, LoadsJoinsAndCleansUpForAGlossary) {
  EXPECT_EQ(GlossaryScript(),
            "@echo off\n"
            "echo rad00002.sql\n"
            "sqlite rad00001.db<rad00002.sql\n"
            "echo rad00003.sql\n"
            "sqlite rad00001.db<rad00003.sql\n"
            "echo rad00004.txt\n"
            "sqlite -separator \"⇥\" rad00001.db \"SELECT DISTINCT S.so,S.sh,R.r2,S.sk,S.st FROM R "
            "INNER JOIN S ON R.r1=S.sm;\">rad00004.txt\n"
            "del rad00002.sql\n"
            "del rad00003.sql\n"
            "del rad00001.db\n");
}

TEST_F(BatchScript, DrawsANameAnewThatIsTakenAlready) {
  GlossaryRunFiles other;
  DrawNames(other);  // takes rad00001.db
  test::WriteBytes(world_.folder.File("rad00002.db"), "left by a run that was killed");
  drawn_ = 0;
  GlossaryRunFiles files;
  DrawNames(files);
  EXPECT_EQ(Readable(files.sDbFile), "rad00003.db");
  EXPECT_EQ(Readable(files.sRefSqlFile), "rad00004.sql");
}

TEST_F(BatchScript, SavesThePurifiedDatabaseBeforeTheUntranslatedScript) {
  RunOptions().chkSaveRefDB = true;
  RunOptions().chkaKeepTmpFile = true;
  RunOptions().chkaUpperCase = true;
  EXPECT_EQ(GlossaryScript(),
            "@echo off\n"
            "echo rad00002.sql\n"
            "sqlite rad00001.db<rad00002.sql\n"
            "del \"/dict/ref_1714.db\"\n"
            "copy rad00001.db \"/dict/ref_1714.db\">nul\n"
            "echo rad00003.sql\n"
            "sqlite rad00001.db<rad00003.sql\n"
            "echo rad00004.txt\n"
            "sqlite -separator \"⇥\" rad00001.db \"SELECT DISTINCT S.so,S.sh,R.r2,S.sk,S.st FROM R "
            "INNER JOIN S ON Upper(R.r1)=S.sm;\">rad00004.txt\n");
}

TEST_F(BatchScript, StartsFromACopyOfAPurifiedDatabaseAndSavesNone) {
  RunOptions().chkSaveRefDB = true;
  TheRun().RefDbPath = u"/dict/我的 字典.db";
  EXPECT_TRUE(
      GlossaryScript().starts_with("@echo off\n"
                                   "echo rad00002.sql\n"
                                   "copy \"/dict/我的 字典.db\" rad00001.db>nul\n"
                                   "echo rad00003.sql\n"));
}

TEST_F(BatchScript, WritesTwoScriptsForAText) {
  TextRunFiles files;
  BuildBatScript(files);
  EXPECT_EQ(Lines(files.sBatFile),
            "@echo off\n"
            "echo rad00002.sql\n"
            "sqlite rad00001.db<rad00002.sql\n"
            "echo rad00003.sql\n"
            "sqlite rad00001.db<rad00003.sql\n"
            "echo rad00004.sql\n"
            "sqlite rad00001.db<rad00004.sql\n"
            "echo rad00006.txt\n"
            "sqlite -separator \"⇥\" rad00001.db \"SELECT DISTINCT S.so,S.sh,R.r2,S.sk,S.st FROM R "
            "INNER JOIN S ON R.r1=S.sm;\">rad00006.txt\n"
            "del rad00002.sql\n"
            "del rad00003.sql\n"
            "del rad00004.sql\n");
  EXPECT_EQ(Lines(files.sBatFile2),
            "@echo off\n"
            "echo rad00005.sql\n"
            "sqlite rad00001.db<rad00005.sql\n"
            "echo \n"
            "sqlite -line rad00001.db \"SELECT o0,o2 FROM O;\">rad00007.txt\n"
            "del rad00005.sql\n");
  EXPECT_EQ(Readable(files.sBatFile2), Readable(world_.folder.File("rad00009.bat")));
}

TEST_F(BatchScript, MakesUpTheSavedNameFromTheReference) {
  struct Case {
    std::u16string chosen, reference, saved;
  };
  for (const auto& row :
       {Case{u"", u"/dict/ref.glo", u"/dict/ref_1714.db"},
        Case{u"", u"/dict.old/ref", u"/dict_1714.db"}, Case{u"mine", u"/dict/ref.glo", u"mine"}}) {
    RunOptions().txtSaveRefDB = row.chosen;
    TheRun().reference = row.reference;
    EXPECT_EQ(Readable(SavedDatabasePath()), Readable(row.saved));
  }
}

TEST_F(BatchScript, ShowsAPathThatTheScriptCannotHoldAndLeavesTheLinesBeforeIt) {
  struct Case {
    std::u16string saved, reference;
    std::string message;
  };
  const std::string place = "\r\n源代码位置: Class Module 'clsLexAwkAct' -> 'BuildBatScript'";
  for (const auto& row :
       {Case{u"", u"/dict/ref", "错误:5\r\n无效的过程调用或参数" + place},
        Case{u"a\"b.db", u"/dict/ref.glo", "错误:52\r\n错误的文件名或号码" + place},
        Case{u"a\nb.db", u"/dict/ref.glo", "错误:52\r\n错误的文件名或号码" + place}}) {
    drawn_ = 0;
    world_.session.messages.clear();
    RunOptions().chkSaveRefDB = true;
    RunOptions().txtSaveRefDB = row.saved;
    TheRun().reference = row.reference;
    EXPECT_EQ(GlossaryScript(), "@echo off\necho rad00002.sql\nsqlite rad00001.db<rad00002.sql\n");
    ASSERT_EQ(world_.session.messages.size(), 1U);
    EXPECT_EQ(Readable(world_.session.messages[0].text), row.message);
  }
}

}  // namespace
}  // namespace lexmill
