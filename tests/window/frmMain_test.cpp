// SPDX-License-Identifier: MIT
#include "window/frmMain.h"

#include <algorithm>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/host/application.h"
#include "platform/host/host_path.h"
#include "tests/support/headless_window.h"
#include "tests/support/readable_text.h"
#include "window/resources/language_table.h"

namespace lexmill {
namespace {

using platform::FileDialogAnswer;
using test::Readable;
using testing::ElementsAre;
using testing::IsEmpty;

struct MainWindow : testing::Test {
  test::HeadlessWindow world;
  frmMain& window = world.window;
  platform::headless::Session& session = world.session;

  MainWindow() { window.Show(); }

  void AnswerFileDialog(std::u16string_view path, std::int32_t filterIndex = 1) {
    session.fileAnswers.push_back(FileDialogAnswer{std::u16string(path), filterIndex});
  }
  [[nodiscard]] bool IsBefore(const platform::Control& front, const platform::Control& back) const {
    const auto order = window.Window.FrontToBack();
    return std::ranges::find(order, &front) < std::ranges::find(order, &back);
  }
};

TEST_F(MainWindow, OpensWithTheOptionsPanelAndTheFullPreset) {
  EXPECT_EQ(Readable(window.Window.Caption()), "Lexmill v0.14");
  EXPECT_EQ(window.chkAdvMode.Value(), 1);
  EXPECT_TRUE(window.fraOptAdv.IsShown());
  EXPECT_TRUE(IsBefore(window.fraOptAdv, window.picState));
  EXPECT_EQ(window.chkaAndX.Value(), 1);
  EXPECT_EQ(window.chkSaveRefDB.Value(), 0);
  EXPECT_FALSE(window.txtSaveRefDB.Enabled());
  EXPECT_FALSE(window.optXRefDB.Enabled());
  EXPECT_FALSE(window.cmdStart.Enabled());
  EXPECT_THAT(session.messages, IsEmpty());
}

TEST_F(MainWindow, LiesInsideItsGroupsAndItsClientArea) {
  std::set<int> tabIndexes;
  for (const platform::Control* control : window.Window.Controls()) {
    SCOPED_TRACE(Readable(control->Name()));
    const auto& place = control->Place();
    const platform::Rectangle client{0, 0, 7035, 4830};
    const auto& room = control->Container() == nullptr ? client : control->Container()->Place();
    EXPECT_GT(place.width, 0);
    EXPECT_GE(place.left, 0);
    EXPECT_GE(place.top, 0);
    EXPECT_LE(place.left + place.width, room.width);
    EXPECT_LE(place.top + place.height, room.height);
    tabIndexes.insert(control->TabIndex());
  }
  EXPECT_EQ(tabIndexes.size(), window.Window.Controls().size());
}

TEST_F(MainWindow, EnablesStartOnlyWhileAllThreePathsHoldText) {
  window.cboToDo.Text(u"a");
  window.cboRefer.Text(u"b");
  EXPECT_FALSE(window.cmdStart.Enabled());
  AnswerFileDialog(u"/out.glo");
  window.cmdSave.UserClicks();
  EXPECT_TRUE(window.cmdStart.Enabled());
  window.cboRefer.Text(u"");
  EXPECT_FALSE(window.cmdStart.Enabled());
  window.cboRefer.AddItem(u"/from/list.glo", 0);
  EXPECT_FALSE(window.cmdStart.Enabled());
  window.cboRefer.UserChooses(0);
  EXPECT_TRUE(window.cmdStart.Enabled());
}

TEST_F(MainWindow, AsksBeforeTheCloseButtonCloses) {
  session.messageAnswers = {platform::MessageAnswer::Cancel, platform::MessageAnswer::Ok};
  window.Window.UserPressesEscape();
  EXPECT_TRUE(window.Window.Visible());
  window.cmdClose.UserClicks();
  EXPECT_FALSE(window.Window.Visible());
  ASSERT_EQ(session.messages.size(), 2U);
  EXPECT_EQ(Readable(session.messages[0].text), "确实要关闭吗？");
  EXPECT_EQ(session.messages[0].icon, platform::MessageIcon::Question);
  EXPECT_EQ(session.messages[0].buttons, platform::MessageButtons::OkCancel);
}

TEST_F(MainWindow, KeepsHistoryAndOptionsWhenItsCloseBoxCloses) {
  AnswerFileDialog(u"/a.glo");
  window.cmdOpen(0).UserClicks();
  AnswerFileDialog(u"/b.db");
  window.cmdOpen(1).UserClicks();
  AnswerFileDialog(u"/c.glo");
  window.cmdSave.UserClicks();
  window.chkaUpperCase.UserClicks();
  window.Window.Close();
  EXPECT_THAT(session.messages, IsEmpty());
  frmMain& fresh = frmMain::Create();
  fresh.Show();
  EXPECT_EQ(Readable(fresh.cboToDo.List(0)), "/a.glo");
  EXPECT_EQ(Readable(fresh.cboRefer.List(0)), "/b.db");
  EXPECT_EQ(Readable(fresh.cboFinal.List(0)), "/c.glo");
  EXPECT_TRUE(fresh.cboToDo.Text().empty());
  EXPECT_EQ(fresh.chkaUpperCase.Value(), 1);
}

TEST_F(MainWindow, AsksForDictionariesWithTheirFilters) {
  session.fileAnswers = {std::nullopt, std::nullopt, std::nullopt};
  window.cmdOpen(0).UserClicks();
  window.cmdOpen(1).UserClicks();
  window.cmdSave.UserClicks();
  ASSERT_EQ(session.openDialogs.size(), 2U);
  const auto& toDo = session.openDialogs[0];
  EXPECT_EQ(Readable(toDo.title), "选择未译字典");
  EXPECT_TRUE(toDo.fileMustExist);
  EXPECT_FALSE(toDo.readOnlyBox);
  ASSERT_EQ(toDo.filters.size(), 4U);
  EXPECT_EQ(Readable(toDo.filters[0].description), "PASSOLO字典/点睛文本(*.glo;*.a.txt;*.u.txt)");
  EXPECT_EQ(Readable(toDo.filters[0].patterns), "*.glo;*.txt");
  EXPECT_EQ(Readable(toDo.filters[2].patterns), "*.txt");
  EXPECT_EQ(Readable(toDo.filters[3].description), "软件语言文件(*.po;*.pot;*.ts;*.xlf)");
  ASSERT_EQ(session.openDialogs[1].filters.size(), 5U);
  EXPECT_EQ(Readable(session.openDialogs[1].filters[1].description), "已净化数据库(*.db)");
  ASSERT_EQ(session.saveDialogs.size(), 1U);
  EXPECT_TRUE(session.saveDialogs[0].overwritePrompt);
  EXPECT_EQ(session.saveDialogs[0].filterIndex, 0);
  EXPECT_EQ(window.cboToDo.ListCount() + window.cboRefer.ListCount() + window.cboFinal.ListCount(),
            0U);
}

TEST_F(MainWindow, CompletesTheNameOfTheResult) {
  struct Case {
    std::u16string_view chosen;
    std::int32_t filterIndex;
    std::string_view path;
  };
  const Case cases[] = {
      {u"/a", 1, "/a.txt"},
      {u"/a", 2, "/a.glo"},
      {u"/a.txt", 2, "/a.txt"},
      {u"/a.TXT", 2, "/a.TXT"},
      {u"/a.Glo", 1, "/a.Glo"},
      {u"/a.ini", 2, "/a.ini.glo"},
      {u"/a.glossar", 1, "/a.glossar.txt"},
      {u"/a.po", 1, "/a.po.txt"},
      {u"/a.PO", 3, "/a.PO"},
      {u"/a", 3, "/a.ts"},
      {u"/a.txt", 3, "/a.txt"},
  };
  window.cboToDo.Text(u"/b.c/todo.ts");
  for (const Case& row : cases) {
    AnswerFileDialog(row.chosen, row.filterIndex);
    window.cmdSave.UserClicks();
    EXPECT_EQ(Readable(window.cboFinal.Text()), row.path);
  }
}

TEST_F(MainWindow, AsksBeforeACompletedNameReplacesAFile) {
  using platform::MessageAnswer;
  struct Case {
    const char* existing;
    const char* chosen;
    platform::Button& button;
    bool asks;
  };
  for (const auto& row : {Case{"out.txt", "out", window.cmdSave, true},
                          Case{"out.txt", "out.txt", window.cmdSave, false},
                          Case{"mine.v2.ini", "mine.v2", window.cmdPreset(3), true},
                          Case{"else.glo", "else", window.cmdSave, false}}) {
    SCOPED_TRACE(std::string(row.chosen) + " beside " + row.existing);
    test::WriteBytes(world.folder.File(row.existing), "older");
    for (const auto answer : {MessageAnswer::Cancel, MessageAnswer::Ok}) {
      session.messages.clear();
      session.messageAnswers = {answer};
      window.cboFinal.Text(u"");
      AnswerFileDialog(world.folder.File(row.chosen));
      row.button.UserClicks();
      EXPECT_EQ(session.messages.size(), row.asks ? 1U : 0U);
      const bool refused = row.asks && answer == MessageAnswer::Cancel;
      if (&row.button == &window.cmdSave) {
        EXPECT_EQ(window.cboFinal.Text().empty(), refused);
      } else if (refused) {
        EXPECT_EQ(test::ReadBytes(world.folder.File(row.existing)), "older");
      }
    }
  }
}

TEST_F(MainWindow, OpensDialogsInTheFolderOfThePathThatItHolds) {
  const std::u16string folder = platform::FromUtf8(world.folder.Path().string());
  const std::pair<std::u16string, std::u16string> cases[] = {
      {u"", u""},
      {folder + u"/x.glo", folder},
      {folder + u"/missing/x.glo", u""},
      {u"bare.glo", platform::WithSeparator(folder)},
  };
  session.fileAnswers.assign(std::size(cases), std::nullopt);
  for (const auto& [text, expected] : cases) {
    window.cboRefer.Text(text);
    window.cmdOpen(1).UserClicks();
    EXPECT_EQ(session.openDialogs.back().initialFolder, expected) << Readable(text);
  }
}

TEST_F(MainWindow, RefusesADroppedFolder) {
  window.cboToDo.UserDropsFile(platform::FromUtf8(world.folder.Path().string()));
  EXPECT_TRUE(window.cboToDo.Text().empty());
  ASSERT_EQ(session.messages.size(), 1U);
  EXPECT_TRUE(Readable(session.messages[0].text).starts_with("这是文件夹，请拖放一个文件:"));
}

TEST_F(MainWindow, OpensItsGuide) {
  platform::SetApplicationFolder(platform::FromUtf8(world.folder.Path().string()));
  window.Window.UserWantsHelp();
  EXPECT_EQ(session.messages.size(), 1U) << "it is missing";
  std::filesystem::create_directory(world.folder.Path() / "docs");
  test::WriteBytes(world.folder.File("docs/guide.zh-CN.md"), "#");
  window.Window.UserWantsHelp();
  EXPECT_THAT(session.openedTargets, ElementsAre(world.folder.File("docs/guide.zh-CN.md")));
  EXPECT_EQ(session.messages.size(), 1U);
}

TEST_F(MainWindow, TakesADroppedFileAsAChosenOne) {
  window.cboToDo.UserDropsFile(u"/a.dictionary");
  window.cboRefer.UserDropsFile(u"/b.db");
  window.cboFinal.UserDropsFile(u"/c");
  EXPECT_EQ(Readable(window.cboToDo.List(0)), "/a.dictionary");
  EXPECT_EQ(Readable(window.cboRefer.Text()), "/b.db");
  EXPECT_EQ(Readable(window.cboFinal.Text()), "/c.txt");
  EXPECT_TRUE(window.cmdStart.Enabled());
  window.cboToDo.Visible(false);
  window.cboToDo.UserDropsFile(u"/during a run");
  EXPECT_EQ(Readable(window.cboToDo.Text()), "/a.dictionary");
}

TEST_F(MainWindow, BrowsesForTheSavedDatabase) {
  window.chkSaveRefDB.UserClicks();
  AnswerFileDialog(u"/saved");
  window.optXRefDB.UserClicks();
  EXPECT_EQ(Readable(window.txtSaveRefDB.Text()), "/saved.db");
  EXPECT_FALSE(window.optXRefDB.Value()) << "the button does not stay pressed";
  EXPECT_EQ(window.Window.ActiveControl(), &window.txtSaveRefDB);
  session.fileAnswers = {std::nullopt};
  window.optXRefDB.UserClicks();
  EXPECT_EQ(Readable(window.txtSaveRefDB.Text()), "/saved.db");
  EXPECT_EQ(Readable(session.saveDialogs[0].defaultExtension), "db");
  window.chkSaveRefDB.UserClicks();
  EXPECT_FALSE(window.optXRefDB.Enabled());
}

TEST_F(MainWindow, SavesAndLoadsPresetFiles) {
  const auto saved = world.folder.File("mine.ini");
  window.cmdPreset(1).UserClicks();
  EXPECT_EQ(window.chkaAndX.Value(), 0);
  AnswerFileDialog(world.folder.File("mine"));
  window.cmdPreset(3).UserClicks();
  window.cmdPreset(0).UserClicks();
  EXPECT_EQ(window.chkaAndX.Value(), 1);
  AnswerFileDialog(saved);
  window.cmdPreset(2).UserClicks();
  EXPECT_EQ(window.chkaAndX.Value(), 0);
  EXPECT_EQ(Readable(window.txtrAndXBK1.Text()), "\\(");
  session.fileAnswers = {std::nullopt, std::nullopt};
  window.cmdPreset(2).UserClicks();
  window.cmdPreset(3).UserClicks();
  EXPECT_EQ(world.folder.Listing(), "Lexmill.ini mine.ini");
}

TEST_F(MainWindow, SwitchesBetweenThePanels) {
  session.sentKeys.clear();
  window.picState.ZOrderFront();
  window.chkAdvMode.UserClicks();
  EXPECT_FALSE(window.fraOptAdv.Visible());
  window.chkAdvMode.UserClicks();
  EXPECT_TRUE(window.fraOptAdv.Visible());
  EXPECT_TRUE(IsBefore(window.fraOptAdv, window.picState));
  window.picState.SetFocus();
  EXPECT_THAT(session.sentKeys, ElementsAre(u"{tab}", u"{tab}", u"{tab}"));
}

TEST_F(MainWindow, OpensTheFolderOfTheResultIfThereIsOne) {
  window.lalFinal.UserDoubleClicks();
  window.cboFinal.Text(u"/no such folder/x.glo");
  window.lalFinal.UserDoubleClicks();
  EXPECT_THAT(session.openedTargets, IsEmpty());
  window.cboFinal.Text(world.folder.File("x.glo"));
  window.lalFinal.UserDoubleClicks();
  EXPECT_THAT(session.openedTargets, ElementsAre(platform::FromUtf8(world.folder.Path().string())));
}

TEST_F(MainWindow, HandsItsAddressesToTheShell) {
  window.LabelEmail.UserClicks();
  window.LabelWeb.UserClicks();
  EXPECT_THAT(session.openedTargets,
              ElementsAre(u"mailto:" + window.LabelEmail.Caption(), window.LabelWeb.Caption()));
}

TEST(LanguageTable, HoldsEveryLineOfTheFile) {
  AddLanguageTable();
  const auto table = platform::LoadStringResource(kLanguageTableId);
  EXPECT_EQ(table.size(), 1392U);
  const auto lines = platform::Split(table, u'\n');
  ASSERT_EQ(lines.size(), 141U);  // a heading, 139 rows, nothing after the last line end
  EXPECT_EQ(Readable(lines[0]), "[Language IDs]\r");
  std::set<std::u16string_view> keys;
  for (std::size_t i = 1; i < 140; ++i) {
    const auto key = lines[i].substr(0, lines[i].find(u'='));
    const auto blank = key.find(u' ');
    ASSERT_NE(blank, std::u16string_view::npos) << Readable(lines[i]);
    EXPECT_EQ(key.find_first_not_of(u"0123456789 "), std::u16string_view::npos)
        << Readable(lines[i]);
    EXPECT_EQ(lines[i].back(), u'\r');
    keys.insert(key);
  }
  EXPECT_EQ(keys.size(), 139U);
}

}  // namespace
}  // namespace lexmill
