// SPDX-License-Identifier: MIT
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/headless_window.h"
#include "tests/support/readable_text.h"

namespace lexmill {
namespace {

using test::Readable;

struct ProgressDisplay : testing::Test {
  test::HeadlessWindow world;
  frmMain& window = world.window;

  // The input controls that are hidden at the run's first stop, and the panel if it is.
  std::set<std::string> HiddenDuringARun() {
    window.cboToDo.Text(u"/none");
    window.cboRefer.Text(u"/none");
    window.cboFinal.Text(u"/none");
    std::set<std::string> hidden;
    world.session.onDoEvents = [&] {
      for (const platform::Control* control : window.Window.Controls()) {
        if (!control->Visible()) {
          hidden.insert(Readable(control->Name()));
        }
      }
    };
    window.cmdStart.UserClicks();
    world.session.onDoEvents = nullptr;
    return hidden;
  }
};

TEST_F(ProgressDisplay, ShowsTimeAndSizeOfAFinishedStage) {
  struct Case {
    std::int32_t milliseconds;
    std::size_t bytes;
    std::string_view caption;
  };
  const Case cases[] = {
      {0, 0, "时间: 0ms 大小: 0KB"},
      {999, 1023, "时间: 999ms 大小: 0KB"},
      {12345, 2097152, "时间: 12,345ms 大小: 2,048KB"},
      {1000, 1048575, "时间: 1,000ms 大小: 1,023KB"},
  };
  const auto file = world.folder.File("result.glo");
  for (const Case& row : cases) {
    test::WriteBytes(file, std::string(row.bytes, 'x'));
    window.UpdateStateLabel(2, row.milliseconds, file);
    EXPECT_EQ(Readable(window.lblState(2).Caption()), row.caption);
  }
}

TEST_F(ProgressDisplay, GivesTheRowItsFinishedLookAlsoWithoutAFile) {
  window.UpdateStateLabel(1, 7, u"");
  window.UpdateStateLabel(3, 7, u"/missing/file");
  EXPECT_EQ(Readable(window.lblState(1).Caption()), "时间: 7ms");
  EXPECT_EQ(Readable(window.lblState(3).Caption()), "时间: 7ms 大小: /missing/file");
  for (const std::int16_t row : std::initializer_list<std::int16_t>{1, 3}) {
    EXPECT_EQ(window.lblState(row).BackColor(), 15717314U);
    EXPECT_EQ(window.shpState(row).BackColor(), 15717314U);
    EXPECT_EQ(window.lblState(row).ForeColor(), 0U);
    EXPECT_EQ(window.shpState(row).ForeColor(), 12937777U) << "the frame stays";
  }
  EXPECT_EQ(window.lblState(0).BackColor(), 0xFFFFFFU);
  EXPECT_EQ(world.session.doEventsCount, 2);
  window.UpdateStateLabel(4, 7, u"");  // no such row: nothing, and no failure
  EXPECT_EQ(world.session.doEventsCount, 3);
}

TEST_F(ProgressDisplay, HidesTheInputDuringARun) {
  window.Show();
  EXPECT_EQ(
      HiddenDuringARun(),
      (std::set<std::string>{
          "cboFinal",       "cboRefer",       "cboToDo",        "chkAdvMode",    "chkNotAddANDX",
          "chkSaveRefDB",   "chkaAndX",       "chkaBanMaoHao",  "chkaBanSenHao", "chkaKeepTmpFile",
          "chkaLTrimSpace", "chkaMTab",       "chkaRTrimSpace", "chkaUpperCase", "chkrAndXEER",
          "chkrQuanMaoHao", "chkrQuanSenHao", "cmdClose",       "cmdHelp",       "cmdOpen",
          "cmdPreset",      "cmdSave",        "cmdStart",       "fraOptAdv",     "lalFRD",
          "lalFinal",       "lalUND",         "txtLenLimit",    "txtSaveRefDB",  "txtrAndXBK1",
          "txtrAndXBK2",    "txttAndXBK1",    "txttAndXBK2"}));
  EXPECT_TRUE(window.cmdStart.IsShown());
  EXPECT_FALSE(window.fraOptAdv.Visible()) << "the run closes the panel at its end";
}

TEST_F(ProgressDisplay, LeavesAClosedOptionsPanelClosed) {
  window.Show();
  window.chkAdvMode.UserClicks();
  std::ignore = HiddenDuringARun();
  EXPECT_FALSE(window.fraOptAdv.Visible());
}

}  // namespace
}  // namespace lexmill
