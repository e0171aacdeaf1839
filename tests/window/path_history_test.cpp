// SPDX-License-Identifier: MIT
#include "window/path_history.h"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "tests/support/headless_window.h"
#include "tests/support/readable_text.h"

namespace lexmill {
namespace {

using test::Readable;

struct PathHistory : testing::Test {
  test::HeadlessWindow world;
  platform::ComboBox& combo = world.window.cboToDo;

  // The list, each entry after a blank.
  [[nodiscard]] std::string List() const {
    std::string list;
    for (std::size_t i = 0; i < combo.ListCount(); ++i) {
      list += ' ';
      list += Readable(combo.List(i));
    }
    return list;
  }

  void Fill(std::u16string_view entries) {
    for (const char16_t entry : entries) {
      combo.AddItem(std::u16string(1, entry), combo.ListCount());
    }
  }
};

TEST_F(PathHistory, PutsATextOnTopOnce) {
  struct Case {
    std::u16string_view before;
    std::u16string_view added;
    std::string_view after;
  };
  const Case cases[] = {
      {u"", u"a", " a"},
      {u"abc", u"c", " c a b"},
      {u"abc", u"A", " A a b c"},                    // case counts
      {u"abcdefgh", u"x", " x a b c d e f g"},       // the oldest goes
      {u"abcdefgh", u"h", " h a b c d e f g"},       // nothing is lost
      {u"abcdefghi", u"i", " i a b c d e f g"},      // the ninth is still looked at, 8 are left
      {u"abcdefghij", u"j", " j a b c d e f g h i"}  // the tenth is not, and only one entry goes
  };
  for (const Case& row : cases) {
    SCOPED_TRACE(Readable(row.before) + " + " + Readable(row.added));
    while (combo.ListCount() > 0) {
      combo.RemoveItem(0);
    }
    Fill(row.before);
    modMain::AddComboHistory(combo, std::u16string(row.added));
    EXPECT_EQ(List(), row.after);
    EXPECT_EQ(Readable(combo.Text()), Readable(row.added));
  }
}

TEST_F(PathHistory, IgnoresAnEmptyText) {
  Fill(u"ab");
  combo.Text(u"typed");
  modMain::AddComboHistory(combo, u"");
  EXPECT_EQ(List(), " a b");
  EXPECT_EQ(Readable(combo.Text()), "typed");
}

TEST_F(PathHistory, ComesBackFromTheSettingsFileBoxByBox) {
  Fill(u"ab");
  world.window.cboRefer.AddItem(u"/字典/r.glo", 0);
  combo.Text(u"typed");
  modMain::SaveComboHistory(combo);
  modMain::SaveComboHistory(world.window.cboRefer);
  EXPECT_EQ(test::FromAnsiBytes(test::ReadBytes(world.folder.File("Lexmill.ini"))),
            "[frmMain.cboToDo]\nCount=2\nItem0=a\nItem1=b\n"
            "[frmMain.cboRefer]\nCount=1\nItem0=/字典/r.glo\n");
  frmMain& fresh = frmMain::Create();
  modMain::LoadComboHistory(fresh.cboToDo);
  modMain::LoadComboHistory(fresh.cboRefer);
  modMain::LoadComboHistory(fresh.cboFinal);
  EXPECT_EQ(fresh.cboToDo.ListCount(), 2U);
  EXPECT_EQ(Readable(fresh.cboToDo.List(1)), "b");
  EXPECT_EQ(Readable(fresh.cboRefer.List(0)), "/字典/r.glo");
  EXPECT_EQ(fresh.cboFinal.ListCount(), 0U);
  EXPECT_TRUE(fresh.cboToDo.Text().empty());
}

TEST_F(PathHistory, KeepsOnlyWhatComesBackWhole) {
  const std::u16string longest = u"/" + std::u16string(253, u'x');
  const std::u16string longestChinese = std::u16string(127, u'字');  // two bytes each
  for (const auto& text :
       {longest, longest + u"x", longestChinese, longestChinese + u"x", std::u16string(u"/a "),
        std::u16string(u"\"/a\""), std::u16string(u"/a\n/b"), std::u16string(u"/\xDCD7\xDCD6")}) {
    combo.AddItem(text, combo.ListCount());
  }
  modMain::SaveComboHistory(combo);
  platform::ComboBox& fresh = frmMain::Create().cboToDo;
  modMain::LoadComboHistory(fresh);
  ASSERT_EQ(fresh.ListCount(), 2U);
  EXPECT_EQ(fresh.List(0), longest);
  EXPECT_EQ(fresh.List(1), longestChinese);
}

TEST_F(PathHistory, ReadsASectionAsFarAsItsCountGoes) {
  struct Case {
    std::string_view count;
    std::string_view list;
  };
  const Case cases[] = {
      {"", ""},
      {"Count=\n", ""},
      {"Count=0\n", ""},
      {"Count=1\n", " a"},
      {"Count=3\n", " a b "},  // a missing item is an empty entry
      {"Count=abc\n", ""},     // a damaged section is an empty list
      {"Count=-1\n", ""},
      {"Count=32768\n", ""},
      {"Count=1e10\n", ""},
  };
  for (const Case& row : cases) {
    SCOPED_TRACE(row.count);
    while (combo.ListCount() > 0) {
      combo.RemoveItem(0);
    }
    test::WriteBytes(world.folder.File("Lexmill.ini"),
                     "[frmMain.cboToDo]\n" + std::string(row.count) + "Item0=a\nItem1=b\n");
    modMain::LoadComboHistory(combo);
    EXPECT_EQ(List(), row.list);
  }
}

}  // namespace
}  // namespace lexmill
