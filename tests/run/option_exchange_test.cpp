// SPDX-License-Identifier: MIT
#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "foundation/cInifile.h"
#include "run/shared/option_set.h"
#include "tests/support/failures.h"
#include "tests/support/headless_window.h"
#include "tests/support/readable_text.h"

namespace lexmill {
namespace {

using test::Readable;
using testing::HasSubstr;
using testing::IsEmpty;

struct OptionExchange : testing::Test {
  test::HeadlessWindow world;
  frmMain& window = world.window;
  std::u16string preset = world.folder.File("preset.ini");

  void WritePreset(std::string_view keys) const {
    test::WriteBytes(preset, "[LexmillCustomSetting]\r\n" + std::string(keys));
  }
  [[nodiscard]] static std::string StoredIn(std::u16string_view path, std::u16string_view key) {
    cInifile file;
    file.Path(path);
    file.Section(u"LexmillCustomSetting");
    file.Key(key);
    return Readable(file.Value());
  }
  [[nodiscard]] std::string Messages() const {
    std::string texts;
    for (const auto& message : world.session.messages) {
      texts += Readable(message.text) + "|";
    }
    return texts;
  }
};

TEST_F(OptionExchange, StartsWithTheFullPresetAndAShortLimit) {
  window.Show();
  window.CfgSaveCtrlToVar();
  OptionSet first = FullPreset();
  first.txtLenLimit = 50;
  EXPECT_EQ(RunOptions(), first);
  EXPECT_EQ(StoredIn(world.folder.File("Lexmill.ini"), u"txtLenLimit"), "50");
}

TEST_F(OptionExchange, MinimalPresetSwitchesAllOffButKeepsWhatHasNoKey) {
  window.Show();
  window.chkaKeepTmpFile.Value(1);
  window.chkSaveRefDB.Value(2);
  window.txtSaveRefDB.Text(u"kept.db");
  window.chkaUpperCase.Value(1);
  window.chkNotAddANDX.Value(1);
  window.CfgLoadMinToCtrl();
  window.CfgSaveCtrlToVar();
  OptionSet minimal = MinimalPreset();
  minimal.chkaKeepTmpFile = minimal.chkSaveRefDB = true;
  minimal.txtSaveRefDB = u"kept.db";
  EXPECT_EQ(RunOptions(), minimal);
  EXPECT_FALSE(window.txtrAndXBK1.Enabled());
  EXPECT_FALSE(window.chkNotAddANDX.Enabled());
  window.CfgLoadMaxToCtrl();
  EXPECT_EQ(Readable(window.txtLenLimit.Text()), "999999999");
  EXPECT_TRUE(window.txtrAndXBK1.Enabled());
  EXPECT_EQ(window.chkNotAddANDX.Value(), 0);
}

TEST_F(OptionExchange, MakesALimitOfWhateverIsInTheBox) {
  struct Case {
    std::u16string_view typed;
    std::int32_t limit;
    std::string_view shown;
  };
  const Case cases[] = {
      {u"", 50, "50"},
      {u"abc", 50, "50"},
      {u"0", 50, "50"},
      {u"-3", 50, "50"},
      {u"007", 7, "7"},
      {u"１００", 100, "100"},
      {u"－１", 50, "50"},
      {u"2.5", 2, "2"},
      {u"3.5", 4, "4"},
      {u"0.5", 50, "50"},
      {u"1e5", 100000, "100000"},
      {u"9e5", 999999999, "999999999"},
      {u"200000000", 200000000, "200000000"},
      {u"1234567890", 123456789, "123456789"},  // the box takes 9 characters
      {u"1,000", 1000, "1000"},
  };
  for (const Case& row : cases) {
    SCOPED_TRACE(Readable(row.typed));
    window.txtLenLimit.Text(row.typed);
    window.CfgSaveCtrlToVar();
    EXPECT_EQ(RunOptions().txtLenLimit, row.limit);
    EXPECT_EQ(Readable(window.txtLenLimit.Text()), row.shown);
  }
  window.txtLenLimit.Text(u"1e10");
  EXPECT_EQ(test::FailureOf([this] { window.CfgSaveCtrlToVar(); }), 6);
}

TEST_F(OptionExchange, SavesTheLimitAsItCanBeUsed) {
  struct Case {
    std::u16string_view typed;
    std::string_view stored;
    std::string_view shown;
  };
  const Case cases[] = {
      {u"abc", "50", "abc"},  {u"0", "50", "50"},     {u"9e5", "999999999", "999999999"},
      {u"007", "007", "007"}, {u"2.5", "2.5", "2.5"},
  };
  for (const Case& row : cases) {
    SCOPED_TRACE(Readable(row.typed));
    window.txtLenLimit.Text(row.typed);
    window.CfgSaveCtrlToIni(preset);
    EXPECT_EQ(StoredIn(preset, u"txtLenLimit"), row.stored);
    EXPECT_EQ(Readable(window.txtLenLimit.Text()), row.shown);
  }
}

TEST_F(OptionExchange, CorrectsTheLimitOfTheFileThatItReads) {
  struct Case {
    std::string_view line;
    std::string_view stored;
    std::string_view shown;
  };
  const Case cases[] = {
      {"", "50", "50"},
      {"txtLenLimit=\r\n", "50", "50"},
      {"txtLenLimit=x\r\n", "50", "50"},
      {"txtLenLimit=0\r\n", "50", "50"},
      {"txtLenLimit=9e5\r\n", "9e5", "999999999"},
      {"txtLenLimit=120\r\n", "120", "120"},
  };
  for (const Case& row : cases) {
    SCOPED_TRACE(row.line);
    WritePreset(row.line);
    window.CfgLoadIniToCtrl(preset);
    EXPECT_EQ(StoredIn(preset, u"txtLenLimit"), row.stored);
    EXPECT_EQ(Readable(window.txtLenLimit.Text()), row.shown);
  }
}

TEST_F(OptionExchange, ReadsOnlyWhatTheFileHolds) {
  window.Show();
  window.txtSaveRefDB.Text(u"old.db");
  WritePreset(
      "chkaAndX=0\r\nchkaMTab=\r\nchkaLTrimSpace=no\r\nchkaUpperCase=2\r\n"
      "txtrAndXBK1=\r\ntxttAndXBK1=[\r\ntxtSaveRefDB=\r\n");
  window.CfgLoadIniToCtrl(preset);
  EXPECT_EQ(window.chkaAndX.Value(), 0);
  EXPECT_FALSE(window.txttAndXBK1.Enabled());
  EXPECT_FALSE(window.chkrAndXEER.Enabled());
  EXPECT_EQ(window.chkrAndXEER.Value(), 1);
  EXPECT_EQ(window.chkaMTab.Value(), 1);
  EXPECT_EQ(window.chkaLTrimSpace.Value(), 1);
  EXPECT_EQ(window.chkaUpperCase.Value(), 2);
  EXPECT_EQ(Readable(window.txtrAndXBK1.Text()), "(?:\\(|\\[|\\<|\\{)");
  EXPECT_EQ(Readable(window.txttAndXBK1.Text()), "[");
  EXPECT_EQ(Readable(window.txtSaveRefDB.Text()), "");
}

TEST_F(OptionExchange, ComesBackAsItWasSaved) {
  window.Show();
  window.chkaUpperCase.Value(2);
  window.chkaBanSenHao.Value(0);
  window.txtrAndXBK2.Text(u"【");
  window.txttAndXBK1.Text(u"（");
  window.txtSaveRefDB.Text(u"/目录/r.db");
  window.txtLenLimit.Text(u"77");
  window.CfgSaveCtrlToVar();
  const OptionSet saved = RunOptions();
  window.CfgSaveCtrlToIni(preset);
  window.CfgLoadMinToCtrl();
  window.txtSaveRefDB.Text(u"");
  window.CfgLoadIniToCtrl(preset);
  window.CfgSaveCtrlToVar();
  EXPECT_EQ(RunOptions(), saved);
  EXPECT_EQ(window.chkaUpperCase.Value(), 2);
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(OptionExchange, ShowsAFailureAndLeavesTheLaterKeysAlone) {
  struct Case {
    std::string_view keys;
    std::string_view message;
  };
  const Case cases[] = {
      {"chkaAndX=0\r\nchkaMTab=3\r\nchkaUpperCase=1\r\ntxtSaveRefDB=x\r\n", "错误:380\r\n"},
      {"chkaAndX=0\r\nchkaMTab=40000\r\nchkaUpperCase=1\r\ntxtSaveRefDB=x\r\n", "错误:6\r\n"},
      {"chkaAndX=0\r\ntxtLenLimit=1e10\r\ntxtSaveRefDB=x\r\n", "错误:6\r\n"},
  };
  for (const Case& row : cases) {
    SCOPED_TRACE(row.keys);
    window.CfgLoadMaxToCtrl();
    world.session.messages.clear();
    WritePreset(row.keys);
    window.CfgLoadIniToCtrl(preset);
    EXPECT_THAT(Messages(), HasSubstr(row.message));
    EXPECT_THAT(Messages(), HasSubstr("源代码位置: Form 'frmMain' -> 'CfgLoadIniToCtrl'"));
    EXPECT_EQ(window.chkaAndX.Value(), 0);
    EXPECT_EQ(window.chkaUpperCase.Value(), 0);
    EXPECT_EQ(Readable(window.txtSaveRefDB.Text()), "");
  }
  window.txtLenLimit.Text(u"1e10");
  world.session.messages.clear();
  window.CfgSaveCtrlToIni(preset);
  EXPECT_THAT(Messages(), HasSubstr("源代码位置: Form 'frmMain' -> 'CfgSaveCtrlToIni'"));
}

}  // namespace
}  // namespace lexmill
