// SPDX-License-Identifier: MIT
#include "platform/host/command_line.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/host/application.h"
#include "tests/support/files.h"
#include "tests/support/readable_text.h"

namespace lexmill::platform {
namespace {

/// Words in brackets, so that empty ones and blanks can be seen.
std::string Bracketed(const std::vector<std::u16string>& words) {
  std::string result;
  for (const auto& word : words) {
    result.append("[").append(test::Readable(word)).append("]");
  }
  return result;
}

TEST(CommandLine, SplitsAtBlanksOutsideQuotes) {
  struct Case {
    const char16_t* line;
    const char* words;
  };
  constexpr Case kCases[] = {
      {u"", ""},
      {u" \t ", ""},
      {u"  sqlite  a.db\tb ", "[sqlite][a.db][b]"},
      {u"sqlite -separator \"\t\" a.db", "[sqlite][-separator][\t][a.db]"},
      {u"copy \"a b\".db \"\" c", "[copy][a b.db][][c]"},
      {u"x \"a>b < c & d | e^%\"", "[x][a>b < c & d | e^%]"},
      {u"x \"no end \t", "[x][no end \t]"},
      {u"x a\\b'c", "[x][a\\b'c]"},
  };
  for (const auto& row : kCases) {
    SCOPED_TRACE(test::Readable(row.line));
    EXPECT_EQ(Bracketed(SplitCommandLine(row.line)), row.words);
  }
}

TEST(CommandLine, RunsAnExistingBatchFileWithTheInterpreter) {
  const test::TemporaryFolder folder;
  test::WriteBytes(folder.File("a b.BAT"), "");
  test::WriteBytes(folder.File("no.txt"), "");
  std::filesystem::create_directory(folder.Path() / "folder.bat");
  const std::u16string former = ApplicationFolder();
  SetApplicationFolder(u"/programs");
  const std::string path = ToUtf8(folder.File("a b.BAT"));
  const std::string batch = "[/programs" + test::SystemPath("/") + "batch]";

  struct Case {
    std::u16string line;
    std::string words;
  };
  const Case cases[] = {
      {folder.File("a b.BAT"), batch + "[" + path + "]"},
      {u"a b.BAT", batch + "[a b.BAT]"},
      {u" \"a b.BAT\" ", batch + "[a b.BAT]"},
      {u"missing.bat", "[missing.bat]"},
      {u"folder.bat", "[folder.bat]"},
      {u"no.txt", "[no.txt]"},
      {u"prog \"a b.BAT\"", "[prog][a b.BAT]"},
      {u"/p/batch /c  echo \"a  b\">\"c d\"", "[/p/batch][/c][echo \"a  b\">\"c d\"]"},
      {u"batch /c", "[batch][/c][]"},
      {u" /c echo \"a b\"", "[/c][echo][a b]"},
      {u"sh /c \"a b\"", "[sh][/c][a b]"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(test::Readable(row.line));
    EXPECT_EQ(Bracketed(CommandLine(row.line, folder.File(""))), row.words);
  }
  SetApplicationFolder(former);
}

}  // namespace
}  // namespace lexmill::platform
