// SPDX-License-Identifier: MIT
#include "run/file_inspection.h"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "tests/support/files.h"

namespace lexmill {
namespace {

using namespace std::string_literals;

std::string Times(int count, std::string_view lines) {
  std::string text;
  for (int i = 0; i < count; ++i) {
    text += lines;
  }
  return text;
}

TEST(FileInspection, SeesWhatTheBytesShow) {
  const std::string utf8 = "Open\t打开\r\n";
  const std::string ansi = test::Ansi("Close\t关闭\n");
  constexpr int kLarge = 40'000;  // lines of several pieces, more than are looked at
  struct Case {
    std::string_view name;
    std::string bytes;
    FileFacts facts;
  };
  const Case cases[] = {
      {"empty", "", {}},
      {"ASCII, no line end", "a\tb", {}},
      {"code page 936", Times(9, ansi), {}},
      {"UTF-8", Times(9, utf8), {}},
      {"UTF-16 with a mark", "\xFF\xFE"s + "a\0\t\0b\0"s, {.isUtf16 = true}},
      {"UTF-16, high bytes first", "\xFE\xFF\0a"s, {.isUtf16 = true}},
      {"UTF-16 without a mark", "O\0k\0\t\0\x7D\x59\r\0\n\0"s, {.isUtf16 = true}},
      {"a NUL in a line", "one\0two\tthree and four\r\n"s, {}},
      {"joined", ansi + utf8, {.hasMixedEncodings = true}},
      {"joined, large", Times(kLarge, ansi) + Times(kLarge, utf8), {.hasMixedEncodings = true}},
      {"one line in five hundred", Times(500, ansi) + utf8, {}},
      {"three columns", "a\tb\r\n" + Times(2, "a\tb\tc\r\n"), {.hasManyColumns = true}},
      {"three columns in half of the lines", "a\tb\r\na\tb\tc\r\n", {}},
  };
  const test::TemporaryFolder folder;
  for (const Case& row : cases) {
    test::WriteBytes(folder.File("dictionary"), row.bytes);
    EXPECT_EQ(InspectFile(folder.File("dictionary")), row.facts) << row.name;
  }
  EXPECT_EQ(InspectFile(folder.File("missing")), FileFacts());
  EXPECT_EQ(InspectFile(folder.File("")), FileFacts()) << "a folder";
}

}  // namespace
}  // namespace lexmill
