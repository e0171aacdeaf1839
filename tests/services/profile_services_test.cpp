// SPDX-License-Identifier: MIT
// Values of INI files beside those that the system reads and writes. Only plain ASCII in files
// without a mark: what else means depends on the machine's code page.
#include <windows.h>

// Ours have these names, too.
#undef GetPrivateProfileString
#undef WritePrivateProfileString

#include <optional>

#include <gtest/gtest.h>

#include "platform/files/profile_file.h"
#include "tests/support/files.h"
#include "tests/support/readable_text.h"

namespace lexmill::platform {
namespace {

using test::Readable;

const wchar_t* Wide(const std::optional<std::u16string>& text) {
  return text ? reinterpret_cast<const wchar_t*>(text->c_str()) : nullptr;
}

class ProfileServices : public testing::Test {
 protected:
  void Write(std::string_view text) const {
    std::string lines;
    for (const char c : text) {
      lines += c == '|' ? "\r\n" : std::string(1, c);
    }
    test::WriteBytes(path_, lines);
  }

  [[nodiscard]] std::string Theirs(const std::optional<std::u16string>& section,
                                   const std::optional<std::u16string>& key) const {
    wchar_t value[256];
    const DWORD length =
        GetPrivateProfileStringW(Wide(section), Wide(key), L"none", value,
                                 static_cast<DWORD>(std::size(value)), Wide(path_));
    return Readable(std::u16string(value, value + length));
  }

  [[nodiscard]] std::string Ours(const std::optional<std::u16string>& section,
                                 const std::optional<std::u16string>& key) const {
    return Readable(GetPrivateProfileString(section, key, u"none", 255, path_));
  }

  test::TemporaryFolder folder_;
  const std::u16string path_ = folder_.File("f.ini");
};

TEST_F(ProfileServices, ReadAlike) {
  const struct {
    std::string file;
    std::u16string section;
    std::u16string key;
  } cases[] = {{"[S]|NaMe1=v", u"s", u"nAmE1"},
               {"[s]|k=v", u" \ts ", u"\tk "},
               {"[s]| \tk \t= \tv \t|", u"s", u"k"},
               {"[s]|k=\"q q\"", u"s", u"k"},
               {"[s]|k=' q '", u"s", u"k"},
               {"[s]|k=\"\"x\"\"", u"s", u"k"},
               {"[s]|k=\"a'", u"s", u"k"},
               {"[s]|k=\"", u"s", u"k"},
               {"[s]|k=a\"b\"", u"s", u"k"},
               {"[s]|k=\"x\" ;c", u"s", u"k"},
               {"[s]|k=", u"s", u"k"},
               {"[s]|k=a=b;c", u"s", u"k"},
               {"[s]| ;k=v", u"s", u"k"},
               {"[s]|#k=v", u"s", u"#k"},
               {"[s]|k|", u"s", u"k"},
               {"[s]|k=1|K=2", u"s", u"k"},
               {"[s]|a=1|[s]|k=2", u"s", u"k"},
               {"[t]|k=1|[s]|k=2|[u]|k=3", u"s", u"k"},
               {" [ s ]trail;x|k=v", u"s", u"k"},
               {"[a]b]|k=v", u"a]b", u"k"},
               {"[s|k=v", u"s", u"k"},
               {"[s]\nk=1\n\nl=2", u"s", u"l"},
               {"[s]\rk=1\rl=2\r\n", u"s", u"l"},
               {"[s]|k=v\x1A", u"s", u"k"},
               {"[s]|x=1|[]|k=v", u"s", u"k"},
               {"\xEF\xBB\xBF[s]|k=\xE4\xB8\xAD", u"s", u"k"},
               {std::string("\xFF\xFE[\0s\0]\0\n\0k\0=\0\x2D\x4E", 16), u"s", u"k"},
               {"", u"s", u"k"}};
  for (const auto& row : cases) {
    SCOPED_TRACE(testing::PrintToString(row.file));
    Write(row.file);
    EXPECT_EQ(Ours(row.section, row.key), Theirs(row.section, row.key));
    // Theirs says "none" for a section without keys, as if it were missing, and takes its name with
    // all blanks.
    if (Ours(row.section, row.key) != "none" && !row.section.starts_with(u' ')) {
      EXPECT_EQ(Ours(row.section, std::nullopt), Theirs(row.section, std::nullopt));
    }
    EXPECT_EQ(Ours(std::nullopt, std::nullopt), Theirs(std::nullopt, std::nullopt));
  }
}

TEST_F(ProfileServices, WriteAlike) {
  const struct {
    std::string before;
    std::optional<std::u16string> section;
    std::optional<std::u16string> key;
    std::optional<std::u16string> value;
  } cases[] = {{"[a]|x=1", u"s", u"k", u"v"},
               {"[s]|x=1", u"s", u"k", u"v"},
               {"[s]|  K  =  \"v\"  |x=1|", u"s", u"k", u"w"},
               {"[s]|k=1|k=2|[s]|k=3|", u"s", u"k", u"v"},
               {"[s]|k=1|k=2|", u"s", u"k", std::nullopt},
               {"[s]|k=1|[t]|x=1|[S]|k=2|", u"s", std::nullopt, u"v"},
               {"[s]|", u"s", u"k", u""},
               {"[s]|", u"s", u"a=b", u"c"},
               {"[t]|", u"x]y", u"k", u"v"},
               {"[s]|k=1|", std::nullopt, u"k", u"v"}};
  for (const auto& row : cases) {
    SCOPED_TRACE(testing::PrintToString(row.before));
    Write(row.before);
    const auto theirs =
        WritePrivateProfileStringW(Wide(row.section), Wide(row.key), Wide(row.value), Wide(path_));
    const std::string bytes = test::ReadBytes(path_);
    Write(row.before);
    EXPECT_EQ(WritePrivateProfileString(row.section, row.key, row.value, path_), theirs);
    EXPECT_EQ(test::ReadBytes(path_), bytes);
  }
}

}  // namespace
}  // namespace lexmill::platform
