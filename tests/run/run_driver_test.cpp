// SPDX-License-Identifier: MIT
// The press of the start button, in a folder without the programs: every run goes to its end,
// and the messages show which way it took.
#include <gtest/gtest.h>

#include "run/shared/option_set.h"
#include "run/shared/run_state.h"
#include "tests/support/headless_window.h"
#include "tests/support/readable_text.h"

namespace lexmill {
namespace {

using test::Ansi;
using test::Readable;

class RunDriver : public testing::Test {
 protected:
  RunDriver() {
    world_.window.Show();
    test::WriteBytes(File("text"), Ansi("1:a\na\n"));
    test::WriteBytes(File("glossary"), Ansi("9 1\t4 2\na\ta\n"));
    test::WriteBytes(File("french"), Ansi("9 1\t12 1\na\tb\n"));
    test::WriteBytes(File("headless"), Ansi("a\ta\n"));
    test::WriteBytes(File("neither"), Ansi("a\n"));
  }

  std::u16string File(std::string_view name) const { return dictionaries_.File(name); }

  void Press(std::string_view toDo, std::string_view refer) {
    world_.session.messages.clear();
    world_.window.cboToDo.Text(File(toDo));
    world_.window.cboRefer.Text(File(refer));
    world_.window.cboFinal.Text(File("final"));
    world_.window.cmdStart.UserClicks();
  }
  std::string LastMessage() const {
    return world_.session.messages.empty() ? "" : Readable(world_.session.messages.back().text);
  }

  test::HeadlessWindow world_;
  test::TemporaryFolder dictionaries_;
};

TEST_F(RunDriver, TakesTheLanguagePairOfTheLastKnownHead) {
  struct Case {
    const char *toDo, *refer, *pair;
  };
  // In this order: two texts leave the pair of the run before them.
  for (const auto& row :
       {Case{"glossary", "headless", "9 1\t4 2"}, Case{"glossary", "french", "9 1\t12 1"},
        Case{"text", "text", "9 1\t12 1"}, Case{"glossary", "text", "9 1\t4 2"},
        Case{"headless", "headless", ""}}) {
    Press(row.toDo, row.refer);
    EXPECT_EQ(Readable(TheRun().LanguagePair), row.pair) << row.toDo << " " << row.refer;
  }
}

TEST_F(RunDriver, ShowsADictionaryThatCannotBeDetectedAndComesBack) {
  for (const auto& [toDo, refer] : {std::pair{"missing", "glossary"}, {"glossary", "neither"}}) {
    world_.window.chkAdvMode.Value(1);
    Press(toDo, refer);
    ASSERT_EQ(world_.session.messages.size(), 1U);
    EXPECT_EQ(LastMessage(),
              "错误:1\r\n不能检测出“未译字典”或“参照字典”的文件格式\r\n"
              "源代码位置: Form 'frmMain' -> 'cmdStart_Click'");
    EXPECT_TRUE(world_.window.cmdStart.IsUsable());
    EXPECT_EQ(world_.window.chkAdvMode.Value(), 0);
    EXPECT_EQ(world_.session.mousePointer, platform::MousePointer::Default);
    EXPECT_EQ(world_.window.cboToDo.ListCount(), 0U);
    EXPECT_EQ(Readable(world_.window.lblState(0).Caption()), "");
  }
}

TEST_F(RunDriver, RefusesALengthLimitThatFitsNoInteger) {
  world_.window.txtLenLimit.Text(u"1e10");
  Press("glossary", "glossary");
  EXPECT_TRUE(LastMessage().starts_with("错误:6\r\n溢出\r\n")) << LastMessage();
}

TEST_F(RunDriver, HidesTheInputAndKeepsACloseRequestUntilTheEnd) {
  bool hidden = false;
  bool wasOpen = false;
  world_.session.onDoEvents = [&] {
    if (world_.window.Window.Busy()) {
      hidden = hidden || !world_.window.cmdStart.Visible();
      world_.window.Window.Close();
      wasOpen = world_.window.Window.Visible();
    }
  };
  Press("glossary", "headless");
  EXPECT_TRUE(hidden);
  EXPECT_TRUE(wasOpen);
  EXPECT_FALSE(world_.window.Window.Visible());
  // The close at the end has kept the paths of the run.
  EXPECT_NE(test::ReadBytes(world_.folder.File("Lexmill.ini")).find("Item0="), std::string::npos);
}

TEST_F(RunDriver, RecognisesEachEncodingByItselfAndWritesTheResultInOneOfThem) {
  test::WriteBytes(File("utf8"), "a\ta\r\n打开\t开\r\n");
  test::WriteBytes(File("gbk"), test::Ansi("a\ta\n打开\t开\n"));
  test::WriteBytes(File("marked"),
                   "\xEF\xBB\xBF"
                   "9 1\t4 2\r\na\ta\r\n");
  struct Case {
    const char *toDo, *refer;
    platform::TextEncoding result, reference;
  };
  using platform::TextEncoding;
  for (const auto& row :
       {Case{"utf8", "gbk", TextEncoding::Utf8, TextEncoding::Ansi},
        Case{"gbk", "utf8", TextEncoding::Ansi, TextEncoding::Utf8},
        Case{"glossary", "gbk", TextEncoding::Ansi, TextEncoding::Ansi},
        Case{"glossary", "utf8", TextEncoding::Utf8, TextEncoding::Utf8},
        Case{"glossary", "marked", TextEncoding::Utf8WithMark, TextEncoding::Utf8WithMark},
        Case{"marked", "utf8", TextEncoding::Utf8WithMark, TextEncoding::Utf8}}) {
    Press(row.toDo, row.refer);
    EXPECT_EQ(TheRun().resultEncoding, row.result) << row.toDo << " " << row.refer;
    EXPECT_EQ(KindOf(File(row.refer)).encoding, row.reference) << row.refer;
  }
  // The head after a mark was found.
  EXPECT_EQ(Readable(TheRun().LanguagePair), "9 1\t4 2");
}

}  // namespace
}  // namespace lexmill
