// SPDX-License-Identifier: MIT
#include "run/dictionary_format.h"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "run/shared/run_state.h"
#include "tests/support/failures.h"
#include "tests/support/headless_window.h"
#include "tests/support/readable_text.h"

namespace lexmill {
namespace {

using modMain::DictionaryFormat;
using test::Readable;

struct DictionaryFormats : testing::Test {
  test::HeadlessWindow world;
  std::u16string path = world.folder.File("a.dictionary");
  std::u16string pair = u"before";

  DictionaryFormat Detect(std::string_view text) {
    test::WriteBytes(path, test::Ansi(text));
    pair = u"before";
    return modMain::DetectDictionaryFormat(path, pair);
  }
};

TEST_F(DictionaryFormats, GoesByTheShapeOfTheLines) {
  struct Case {
    std::string_view name;
    std::string_view text;
    DictionaryFormat format;
    std::string_view pair;
  };
  const std::string manyTextEntries = "1:a\nb\n2:a\nb\n3:a\nb\n4:a\nb\n5:a\nb\n6:a\n";
  const Case cases[] = {
      {"head", "9 1\t4 2\nOpen\t打开\n", DictionaryFormat::PassoloGlossary, "9 1\t4 2"},
      {"no head", "Open\t打开\n", DictionaryFormat::PassoloGlossary, "before"},
      {"unknown key", "22 3\t4 2\n", DictionaryFormat::PassoloGlossary, "before"},
      {"second key unknown", "9 1\t4 99\n", DictionaryFormat::PassoloGlossary, "before"},
      {"head after other lines", "\nx\n\n9 1\t4 2\n", DictionaryFormat::PassoloGlossary,
       "9 1\t4 2"},
      {"head without a line end", "9 1\t4 2", DictionaryFormat::PassoloGlossary, "9 1\t4 2"},
      {"head after a line of three columns", "a\tb\tc\n9 1\t4 2\nx\ty\n",
       DictionaryFormat::PassoloGlossary, "9 1\t4 2"},
      {"three columns take the head's place", "Open\t打开\n9 1\t4 2\t\nx\ty\nz\t\t\n",
       DictionaryFormat::PassoloGlossary, "9 1\t4 2"},
      {"but not after a second pair", "Open\t打开\nx\ty\n9 1\t4 2\t\n",
       DictionaryFormat::PassoloGlossary, "before"},
      {"one pair in a text", "1:abc\ndef\n2:x\ty\nz\n", DictionaryFormat::PassoloGlossary,
       "before"},
      {"text", "12:abc\n译文\n", DictionaryFormat::DianjingText, "before"},
      {"empty line after the first number", "12:abc\n\n13:abc\nx\n", DictionaryFormat::DianjingText,
       "before"},
      {"enough entries before the end", manyTextEntries, DictionaryFormat::DianjingText, "before"},
      {"two TABs only", "a\tb\tc\n1:x\ny\n", DictionaryFormat::DianjingText, "before"},
      {"number with sign, point and blanks", " -1.5 :x\ny\n", DictionaryFormat::DianjingText,
       "before"},
      {"the line after a number is no head", "1:x\n2:y\n", DictionaryFormat::DianjingText,
       "before"},
      {"no number", "File:abc\nx\n:abc\nx\n", DictionaryFormat::Unknown, "before"},
      {"plain lines", "abc\n\n", DictionaryFormat::Unknown, "before"},
      {"numbers with empty lines only", "1:a\n\n2:b\n\n", DictionaryFormat::Unknown, "before"},
  };
  for (const Case& row : cases) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(Detect(row.text), row.format);
    EXPECT_EQ(Readable(pair), row.pair);
  }
}

TEST_F(DictionaryFormats, FindsNothingInAFileThatIsNotThere) {
  EXPECT_EQ(modMain::DetectDictionaryFormat(path, pair), DictionaryFormat::Unknown);
  EXPECT_EQ(modMain::DetectDictionaryFormat(u"", pair), DictionaryFormat::Unknown);
  EXPECT_EQ(Readable(pair), "before");
  EXPECT_EQ(world.folder.Listing(), "");
}

TEST_F(DictionaryFormats, FailsWhereItReadsOnPastTheEnd) {
  for (const std::string_view text : {"", "abc\n1:x", "1:x\n"}) {
    EXPECT_EQ(test::FailureOf([&] { std::ignore = Detect(text); }), 62) << text;
  }
}

TEST_F(DictionaryFormats, WritesTheLanguageTableAnewForEachGlossary) {
  const auto table = world.folder.File("POLOLID.ini");
  EXPECT_EQ(Detect("1:a\nb\n"), DictionaryFormat::DianjingText);
  EXPECT_EQ(world.folder.Listing(), "a.dictionary");
  test::WriteBytes(table, "[Language IDs]\r\n22 3=xxx\r\n");
  EXPECT_EQ(Detect("22 3\t4 2\n"), DictionaryFormat::PassoloGlossary);
  EXPECT_EQ(Readable(pair), "before");
  const std::string bytes = test::ReadBytes(table);
  EXPECT_EQ(bytes.size(), 1392U);
  EXPECT_TRUE(bytes.starts_with("[Language IDs]\r\n54 1=afk\r\n"));
  EXPECT_TRUE(bytes.ends_with("\r\n42 1=vit\r\n"));
}

TEST_F(DictionaryFormats, ReadsADictionaryInTheEncodingThatTheRunKnows) {
  test::WriteBytes(path,
                   "\xEF\xBB\xBF"
                   "9 1\t4 2\r\n");
  TheRun().dictionaries[path].encoding = platform::TextEncoding::Utf8WithMark;
  EXPECT_EQ(modMain::DetectDictionaryFormat(path, pair), DictionaryFormat::PassoloGlossary);
  EXPECT_EQ(Readable(pair), "9 1\t4 2");
}

}  // namespace
}  // namespace lexmill
