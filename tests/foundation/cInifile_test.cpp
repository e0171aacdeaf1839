// SPDX-License-Identifier: MIT
#include "foundation/cInifile.h"

#include <gtest/gtest.h>

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

TEST(InifileConversion, FallsBackOnTheDefault) {
  EXPECT_EQ(cInifile::CLngDefault(u" 1,234 "), 1234);
  EXPECT_EQ(cInifile::CLngDefault(u"", 5), 5);
  EXPECT_EQ(cInifile::CLngDefault(u"FAIL", -7), -7);
  EXPECT_EQ(cInifile::CLngDefault(u"2147483648"), 0);
}

}  // namespace
}  // namespace lexmill
