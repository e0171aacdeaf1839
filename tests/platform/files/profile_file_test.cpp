// SPDX-License-Identifier: MIT
#include "platform/files/profile_file.h"

#include <cstdlib>

#include <gtest/gtest.h>

#include "tests/support/files.h"
#include "tests/support/hard_surroundings.h"
#include "tests/support/readable_text.h"

namespace lexmill::platform {
namespace {

using test::OrdinaryUser;
using test::Readable;
using test::ReadBytes;
using test::TemporaryFolder;
using test::WriteBytes;

/// `text` with "|" for CR LF, so that a file fits on one line of a table.
std::string Lines(std::string_view text) {
  std::string lines;
  for (const char c : text) {
    lines += c == '|' ? "\r\n" : std::string(1, c);
  }
  return lines;
}

class ProfileFile : public testing::Test {
 protected:
  [[nodiscard]] std::string Read(OptionalText section, OptionalText key,
                                 std::u16string_view defaultText = u"none",
                                 std::size_t size = 255) const {
    return Readable(GetPrivateProfileString(section, key, defaultText, size, path_));
  }

  OrdinaryUser user_;
  TemporaryFolder folder_;
  const std::u16string path_ = folder_.File("f.ini");
};

TEST_F(ProfileFile, ReadsValues) {
  const struct {
    std::string file;
    std::u16string section;
    std::u16string key;
    std::string value;
  } cases[] = {
      {"[S]|NaMe1=v", u"s", u"nAmE1", "v"},
      {"[s]|k=v", u" \ts ", u"\tk ", "v"},
      {"[s]| \tk \t= \tv \t|", u"s", u"k", "v"},
      {"[s]|k=\"q q\"", u"s", u"k", "q q"},
      {"[s]|k=' q '", u"s", u"k", " q "},
      {"[s]|k=\"\"x\"\"", u"s", u"k", "\"x\""},
      {"[s]|k=\"a'", u"s", u"k", "\"a'"},
      {"[s]|k=\"", u"s", u"k", "\""},
      {"[s]|k=a\"b\"", u"s", u"k", "a\"b\""},
      {"[s]|k=\"x\" ;c", u"s", u"k", "\"x\" ;c"},
      {"[s]|k=\"\"", u"s", u"k", ""},
      {"[s]|k=", u"s", u"k", ""},
      {"[s]|k=a=b;c", u"s", u"k", "a=b;c"},
      {"[s]| ;k=v", u"s", u"k", "none"},
      {"[s]| ;k=v", u"s", u";k", "none"},
      {"[s]|#k=v", u"s", u"#k", "v"},
      {"[s]|k|", u"s", u"k", "none"},
      {"[s]|k=1|K=2", u"s", u"k", "1"},
      {"[s]|a=1|[s]|k=2", u"s", u"k", "none"},
      {"[t]|k=1|[s]|k=2|[u]|k=3", u"s", u"k", "2"},
      {" [ s ]trail;x|k=v", u"s", u"k", "v"},
      {"[a]b]|k=v", u"a]b", u"k", "v"},
      {"[s|k=v", u"s", u"k", "none"},
      {"k=v|[s]", u"", u"k", "none"},
      {"[s]\nk=1\n\nl=2", u"s", u"l", "2"},
      {"[s]\rk=1\rl=2\r\n", u"s", u"l", "2"},
      {std::string("[s]|k=a\0b|l=2", 13), u"s", u"k", "a"},
      {std::string("[s]|k=a\0b|l=2", 13), u"s", u"l", "2"},
      {"\xEF\xBB\xBF[\u4E2D]|k=\u5B57", u"中", u"k", "字"},
      {"[s]|k=v\x1A", u"s", u"k", "v"},
      {"[s]|x=1|[]|k=v", u"s", u"k", "none"},
      {"[\xD6\xD0]|\xCE\xC4=\xD7\xD6", u"中", u"文", "字"},
      {"[\x81\x5D]|k=v", u"乚", u"k", "v"},
      // No header: what looks like "]" is the second byte of a character.
      {"[\x81\x5D|k=v", u"\xDC81", u"k", "none"},
      {"[\xA6\xC1]|k=v", u"\u0391", u"k", "v"},
      {"[s]|k=a\xD6|l=2", u"s", u"k", "a<DCD6>"},
      {"", u"s", u"k", "none"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(testing::PrintToString(row.file) + " " + Readable(row.key));
    WriteBytes(path_, Lines(row.file));
    EXPECT_EQ(Read(row.section, row.key), row.value);
  }
}

TEST_F(ProfileFile, TakesTheDefaultWithoutTrailingBlanks) {
  EXPECT_EQ(Read(u"s", u"k", u" d\t  "), " d\t");
  EXPECT_EQ(Read(u"s", std::nullopt, u"d "), "d");
  WriteBytes(path_, "[s]\r\nk=\r\n");
  EXPECT_EQ(Read(u"s", u"", u"d"), "d");
  EXPECT_EQ(Read(u"t", std::nullopt, u"d"), "d");
  EXPECT_EQ(Read(u"s", u"k", u"d"), "");
}

TEST_F(ProfileFile, CutsAtTheBytesOfTheBuffer) {
  WriteBytes(path_, "[s]\r\nk=val1\r\nc=\xD6\xD0\xCE\xC4\r\n");
  const struct {
    std::u16string key;
    std::size_t size;
    std::string value;
  } cases[] = {{u"k", 5, "val1"}, {u"k", 4, "val"}, {u"k", 1, ""},         {u"k", 0, ""},
               {u"c", 5, "中文"}, {u"c", 3, "中"},  {u"c", 4, "中<DCCE>"}, {u"x", 5, "1234"}};
  for (const auto& row : cases) {
    EXPECT_EQ(Read(u"s", row.key, u"12345678", row.size), row.value) << row.size;
  }
}

TEST_F(ProfileFile, ListsNames) {
  const auto list = [this](OptionalText section, OptionalText key, std::size_t size) {
    std::string names = Read(section, key, u"", size);
    for (char& c : names) {
      c = c == '\0' ? '|' : c;
    }
    return names;
  };
  WriteBytes(path_, Lines("x=1|[section1]|name1=val1|name2=\"val2\"|name3|;c=|name4=a||name1=|"
                          "[section2]|[s|[]|[section1]|z=1|"));
  EXPECT_EQ(list(u"section1", std::nullopt, 100), "name1|name2|name4|name1|");
  EXPECT_EQ(list(u"section2", std::nullopt, 100), "");
  EXPECT_EQ(list(std::nullopt, std::nullopt, 100), "section1|section2|section1|");
  EXPECT_EQ(list(std::nullopt, u"name1", 100), "section1|section2|section1|");
  EXPECT_EQ(list(std::nullopt, std::nullopt, 16), "section1|secti");
  EXPECT_EQ(list(u"section1", std::nullopt, 16), "name1|name2|na");
  EXPECT_EQ(list(std::nullopt, std::nullopt, 29), "section1|section2|section1|");
  EXPECT_EQ(list(std::nullopt, std::nullopt, 28), "section1|section2|section1");
  EXPECT_EQ(list(std::nullopt, std::nullopt, 1), "");
}

TEST_F(ProfileFile, WritesAndKeepsAllOtherBytes) {
  const struct {
    std::string before;
    OptionalText section;
    OptionalText key;
    OptionalText value;
    std::string after;
  } cases[] = {
      {"", u"s", u"k", u"v", "[s]|k=v|"},
      {"[a]|x=1|", u" s ", u" k ", u"v", "[a]|x=1|[s]|k=v|"},
      {"[a]|x=1", u"s", u"k", u"v", "[a]|x=1|[s]|k=v|"},
      {"[s]|x=1", u"s", u"k", u"v", "[s]|x=1|k=v|"},
      {"[s]|x=1||;c||[t]|", u"s", u"k", u"v", "[s]|x=1|k=v||;c||[t]|"},
      {"[s]|;c|[t]", u"s", u"k", u"v", "[s]|k=v|;c|[t]"},
      {"[s]\nK=1\n[t]\n", u"S", u"k", u"v", "[s]\nK=v\n[t]\n"},
      {"[s]|  K  =  \"v\"  |x=1", u"s", u"k", u"w", "[s]|K=w|x=1"},
      {"[s]|k=1|k=2|[s]|k=3|", u"s", u"k", u"v", "[s]|k=v|k=2|[s]|k=3|"},
      {"[s]|k=1|k=2|", u"s", u"k", std::nullopt, "[s]|k=2|"},
      {"[s]|k=1", u"s", u"k", std::nullopt, "[s]|"},
      {"[s]|x=1", u"s", u"k", std::nullopt, "[s]|x=1"},
      {"[s]|k=1||[t]|x=1|[S]|k=2", u"s", std::nullopt, u"v", "[t]|x=1|[S]|k=2"},
      {"[t]|x=1|[s]|k=1", u"s", std::nullopt, std::nullopt, "[t]|x=1|"},
      {"[s]|", u"s", u"k", u"", "[s]|k=|"},
      {"[s]|", u"s", u"k", u" \"v\" ", "[s]|k= \"v\" |"},
      {"[s]|", u"s", u"k", std::u16string_view(u"v\0w", 3), "[s]|k=v|"},
      {"[s]|", u"s", u"k", u"v\r\nw", "[s]|k=v|w|"},
      {"[s]|", u"s", u"a=b", u"c", "[s]|a=b=c|"},
      {"", u"x]y", u"k", u"v", "[x]y]|k=v|"},
      {"\xEF\xBB\xBF[s]|\xD6|k=1|\xFF\x81\x30\n", u"s", u"k", u"中\xDCFF",
       "\xEF\xBB\xBF[s]|\xD6|k=\xE4\xB8\xAD\xFF|\xFF\x81\x30\n"},
      {"\r|junk\xD6|[s]|\xFF=\x81|k=1", u"s", u"k", u"v", "\r|junk\xD6|[s]|\xFF=\x81|k=v"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(testing::PrintToString(row.before));
    WriteBytes(path_, Lines(row.before));
    EXPECT_EQ(WritePrivateProfileString(row.section, row.key, row.value, path_), 1);
    EXPECT_EQ(ReadBytes(path_), Lines(row.after));
  }
}

TEST_F(ProfileFile, KeepsAWideFileWide) {
  const auto wide = [](std::string_view ascii) {
    std::string bytes = "\xFF\xFE";
    for (const char c : ascii) {
      bytes += {c, '\0'};
    }
    return bytes;
  };
  // A lone surrogate and a byte without a partner are damage that a write passes on.
  const std::string damage("\x00\xD8\x2D\x4E\n\0", 6);
  WriteBytes(path_, wide("[s]\r\nk=1\r\n") + damage + "x");
  EXPECT_EQ(Read(u"s", u"k"), "1");
  EXPECT_EQ(WritePrivateProfileString(u"s", u"k", u"中", path_), 1);
  EXPECT_EQ(ReadBytes(path_), wide("[s]\r\nk=") + "\x2D\x4E" + wide("\r\n").substr(2) + damage +
                                  std::string("x\0", 2));
}

TEST_F(ProfileFile, CreatesAnEmptyFileToDeleteFrom) {
  EXPECT_EQ(WritePrivateProfileString(u"s", u"k", std::nullopt, path_), 1);
  EXPECT_EQ(ReadBytes(path_), "");
}

TEST_F(ProfileFile, FailsWithoutATrace) {
  WriteBytes(path_, "[s]\r\nk=1\r\n");
  WriteBytes(folder_.File("unreadable"), "[s]\r\nk=1\r\n");
  std::filesystem::permissions(folder_.Path() / "f.ini", std::filesystem::perms(0444));
  std::filesystem::permissions(folder_.Path() / "unreadable", std::filesystem::perms(0200));
  test::MakePipe(folder_.File("pipe"));
  for (const std::u16string& path :
       {path_, folder_.File("unreadable"), folder_.File("pipe"), folder_.File("none/f.ini"),
        folder_.File(""), std::u16string()}) {
    EXPECT_EQ(WritePrivateProfileString(u"s", u"k", u"v", path), 0) << Readable(path);
  }
  EXPECT_EQ(WritePrivateProfileString(std::nullopt, u"k", u"v", folder_.File("new")), 0);
  EXPECT_EQ(WritePrivateProfileString(u" ", u"k", u"v", folder_.File("new")), 0);
  EXPECT_EQ(WritePrivateProfileString(u"s", u"", u"v", folder_.File("new")), 0);
  EXPECT_EQ(ReadBytes(path_), "[s]\r\nk=1\r\n");
  EXPECT_EQ(folder_.Listing(), "f.ini pipe unreadable");
}

/// Runs in a process of its own, since nothing takes back what it asks for.
[[noreturn]] void WriteInMemory(std::u16string_view path) {
  KeepProfileWritesInMemory();
  const bool written = WritePrivateProfileString(u"s", u"k", u"new", path) == 1 &&
                       WritePrivateProfileString(u"s", u"l", u"added", path) == 1;
  const bool seen = GetPrivateProfileString(u"s", u"k", u"", 255, path) == u"new" &&
                    GetPrivateProfileString(u"s", u"l", u"", 255, path) == u"added" &&
                    GetPrivateProfileString(u"s", u"m", u"", 255, path) == u"kept";
  std::_Exit(written && seen ? 0 : 1);
}

TEST_F(ProfileFile, KeepsWritesInMemoryWhenTold) {
  WriteBytes(path_, "[s]\r\nk=old\r\nm=kept\r\n");
  EXPECT_EXIT(WriteInMemory(path_), testing::ExitedWithCode(0), "");
  EXPECT_EQ(ReadBytes(path_), "[s]\r\nk=old\r\nm=kept\r\n");
}

}  // namespace
}  // namespace lexmill::platform
