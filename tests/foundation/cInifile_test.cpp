// SPDX-License-Identifier: MIT
#include "foundation/cInifile.h"

#include <gtest/gtest.h>

#include "platform/headless/headless.h"
#include "tests/support/files.h"
#include "tests/support/readable_text.h"

namespace lexmill {
namespace {

using test::Readable;
using test::ReadBytes;
using test::TemporaryFolder;
using test::WriteBytes;

class Inifile : public testing::Test {
 protected:
  Inifile() {
    ini_.Path(path_);
    ini_.Section(u"s");
    ini_.Key(u"k");
  }

  void Write(std::u16string value) { ini_.Value(value); }

  TemporaryFolder folder_;
  const std::u16string path_ = folder_.File("f.ini");
  cInifile ini_;
};

TEST_F(Inifile, SuccessSpeaksOfTheLastWriteOnly) {
  EXPECT_FALSE(ini_.Success());
  Write(u"v");
  EXPECT_TRUE(ini_.Success());
  ini_.Path(folder_.File("none/f.ini"));
  ini_.Default(u"d");
  EXPECT_EQ(Readable(ini_.Value()), "d");
  EXPECT_TRUE(ini_.Success());
  Write(u"v");
  EXPECT_EQ(ini_.LastReturnCode(), 0);
}

TEST_F(Inifile, TakesNulCharactersOutOfTheCallersTextToo) {
  std::u16string value(u"a\0b\0", 4);
  ini_.Value(value);
  EXPECT_EQ(Readable(value), "ab");
  EXPECT_EQ(ReadBytes(path_), "[s]\r\nk=ab\r\n");
}

TEST_F(Inifile, CutsAValueAt254Bytes) {
  Write(std::u16string(130, u'词'));
  EXPECT_EQ(ini_.Value(), std::u16string(127, u'词'));
  Write(u"x" + std::u16string(130, u'词'));
  EXPECT_EQ(Readable(ini_.Value().substr(126)), "词<DCB4>");
}

TEST_F(Inifile, DeletesKeysAndSections) {
  const std::string file = "[s]\r\nk=1\r\nl=2\r\n[t]\r\nk=3\r\n";
  WriteBytes(path_, file);
  ini_.DeleteKey();
  EXPECT_EQ(ReadBytes(path_), "[s]\r\nl=2\r\n[t]\r\nk=3\r\n");
  ini_.DeleteSection();
  EXPECT_EQ(ReadBytes(path_), "[t]\r\nk=3\r\n");
  WriteBytes(path_, file);
  ini_.INISection(u"x=1");
  EXPECT_TRUE(ini_.Success());
  EXPECT_EQ(ReadBytes(path_), "[t]\r\nk=3\r\n");
}

TEST_F(Inifile, EnumeratesKeysAndSections) {
  WriteBytes(path_, "[s]\r\nk=1\r\nl=2\r\n[]\r\n[t]\r\n");
  std::vector<std::u16string> names = {u"old"};
  std::int32_t count = 7;
  ini_.EnumerateCurrentSection(names, count);
  EXPECT_EQ(names, (std::vector<std::u16string>{u"k", u"l"}));
  EXPECT_EQ(count, 2);
  ini_.EnumerateAllSections(names, count);
  EXPECT_EQ(names, (std::vector<std::u16string>{u"s", u"t"}));
  EXPECT_EQ(count, 2);
  ini_.Section(u"none");
  ini_.Default(u"no name ends here");
  ini_.EnumerateCurrentSection(names, count);
  EXPECT_TRUE(names.empty());
  EXPECT_EQ(count, 0);
}

// A screen of 1024 by 768 pixels: 15360 by 11520 twips, of which a margin of 60 stays free.
class FormPosition : public Inifile {
 protected:
  FormPosition() { platform::headless::TheSession() = {}; }

  // Place of a window after it was loaded from `keys`, and its state.
  std::string Loaded(std::string_view keys) {
    WriteBytes(path_, "[s]\r\n" + std::string(keys));
    platform::Form form(u"f");
    form.Move(600, 750, 4500, 4800);
    ini_.Key(u"mine");
    ini_.Default(u"mine");
    ini_.LoadFormPosition(form);
    EXPECT_TRUE(ini_.Key() == u"mine" && ini_.Default() == u"mine");
    return std::to_string(form.Left()) + " " + std::to_string(form.Top()) + " " +
           std::to_string(form.Width()) + " " + std::to_string(form.Height()) +
           (form.WindowState() == platform::FormState::Maximised ? " max" : "");
  }
};

TEST_F(FormPosition, ComesBackInsideTheScreen) {
  struct Case {
    const char *keys, *place;
  };
  for (const auto& row :
       {Case{"", "600 750 4500 4800"},
        Case{"Left=900\r\nTop=1,200\r\nWidth=6000\r\nHeight=5000\r\n", "900 1200 6000 5000"},
        Case{"Left=-5000\r\nTop=0\r\n", "60 60 4500 4800"},
        Case{"Left=15000\r\nTop=2147483647\r\n", "10800 6660 4500 4800"},
        Case{"Width=99999\r\nHeight=99999\r\n", "60 60 15240 11400"},
        Case{"Width=1\r\nHeight=x\r\n", "600 750 3000 4800"},
        Case{"Left=900\r\nMaximised=1\r\n", "900 750 4500 4800 max"}}) {
    EXPECT_EQ(Loaded(row.keys), row.place) << row.keys;
  }
  // Cut down below the least width: no move at all.
  platform::headless::TheSession().screen.width = 3000;
  EXPECT_EQ(Loaded("Left=900\r\n"), "600 750 4500 4800");
}

TEST_F(FormPosition, StoresOnlyWhatANormalWindowHas) {
  platform::Form form(u"f");
  form.Move(1, 2, 3, 4);
  ini_.Key(u"mine");
  form.WindowState(platform::FormState::Minimised);
  ini_.SaveFormPosition(form);
  EXPECT_FALSE(std::filesystem::exists(folder_.Path() / "f.ini"));
  form.WindowState(platform::FormState::Normal);
  ini_.SaveFormPosition(form);
  const std::string normal = "[s]\r\nMaximised=0\r\nLeft=1\r\nTop=2\r\nWidth=3\r\nHeight=4\r\n";
  EXPECT_EQ(ReadBytes(path_), normal);
  form.Move(9, 9, 9, 9);
  form.WindowState(platform::FormState::Maximised);
  ini_.SaveFormPosition(form);
  EXPECT_EQ(ReadBytes(path_), "[s]\r\nMaximised=1" + normal.substr(normal.find("\r\nLeft")));
  EXPECT_EQ(ini_.Key(), u"mine");
}

TEST(InifileConversion, FallsBackOnTheDefault) {
  EXPECT_EQ(cInifile::CLngDefault(u" 1,234 "), 1234);
  EXPECT_EQ(cInifile::CLngDefault(u"", 5), 5);
  EXPECT_EQ(cInifile::CLngDefault(u"FAIL", -7), -7);
  EXPECT_EQ(cInifile::CLngDefault(u"2147483648"), 0);
}

}  // namespace
}  // namespace lexmill
