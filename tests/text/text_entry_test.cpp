// SPDX-License-Identifier: MIT
#include "text/text_entry.h"

#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/files.h"
#include "tests/support/readable_text.h"

namespace lexmill {
namespace {

using test::Readable;

TEST(TextEntry, AHeadLineIsANumberAColonAndTheSource) {
  struct Case {
    std::u16string_view line;
    std::optional<std::u16string_view> source;
  };
  const Case cases[] = {
      {u"101:&Open...", u"&Open..."},
      {u"1:2:3", u"2:3"},
      {u"7:", u""},
      {u"7: a ", u" a "},
      {u"-1.5E3:a", u"a"},
      {u"1,234:a", u"a"},
      {u"", std::nullopt},
      {u":a", std::nullopt},
      {u"File:1:a", std::nullopt},
      {u"12 a:b", std::nullopt},
      {u"12", std::nullopt},
      {u"12：a", std::nullopt},
  };
  for (const Case& row : cases) {
    EXPECT_EQ(SourceOfHeadLine(row.line), row.source) << Readable(row.line);
  }
}

class TextEntries : public testing::Test {
 protected:
  /// Appends the entries of a file of these bytes as "head line|source|target" in round brackets.
  void Read(std::string_view bytes, std::string& entries) {
    test::WriteBytes(folder_.File("text"), bytes);
    auto input = platform::FileSystemObject().OpenTextFile(folder_.File("text"));
    platform::Label label;
    ProgressTick progress;
    progress.StateLabel(label);
    progress.Start();
    ForEachEntry(input, progress, [&entries](const TextEntry& entry) {
      entries.append("(").append(Readable(entry.headLine));
      entries.append("|").append(Readable(entry.source));
      entries.append("|").append(Readable(entry.target)).append(")");
    });
  }

 private:
  test::TemporaryFolder folder_;
};

TEST_F(TextEntries, AreFoundInEveryFile) {
  struct Case {
    const char* name;
    std::string bytes;
    const char* entries;
  };
  const Case cases[] = {
      {"other lines between", "title\r\n\r\n1:a\r\nA\r\n\r\nnote: b\r\n2:b\r\nB\r\n",
       "(1:a|a|A)(2:b|b|B)"},
      {"an empty target", "1:a\r\n\r\n2:b\r\nB\r\n", "(1:a|a|)(2:b|b|B)"},
      {"a target that looks like a head line", "1:a\r\n2:b\r\nx:y\r\n", "(1:a|a|2:b)"},
      {"an other line as target", "1:a\r\nx:y\r\n", "(1:a|a|x:y)"},
      {"a last line without its end", "1:a\nA", "(1:a|a|A)"},
      {"the same number again", "1:a\r\nA\r\n1:b\r\nB\r\n", "(1:a|a|A)(1:b|b|B)"},
      {"a long head line before a short one", "1:as long as no small buffer\r\nA\r\n2:b\r\nB\r\n",
       "(1:as long as no small buffer|as long as no small buffer|A)(2:b|b|B)"},
      {"no entry", "nothing\r\nhere\r\n", ""},
  };
  for (const Case& row : cases) {
    SCOPED_TRACE(row.name);
    std::string entries;
    Read(row.bytes, entries);
    EXPECT_EQ(entries, row.entries);
  }
}

}  // namespace
}  // namespace lexmill
