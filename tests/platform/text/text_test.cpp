// SPDX-License-Identifier: MIT
#include "platform/text/text.h"

#include <vector>

#include <gtest/gtest.h>

#include "platform/text/utf8.h"
#include "tests/support/readable_text.h"

namespace lexmill::platform {
namespace {

using test::Readable;

TEST(Text, TrimsBlanksOnly) {
  EXPECT_EQ(Trim(u"  a b  "), u"a b");
  EXPECT_EQ(TrimLeft(u"  a "), u"a ");
  EXPECT_EQ(TrimRight(u" a  "), u" a");
  EXPECT_EQ(Trim(u"   "), u"");
  EXPECT_EQ(Trim(u"\t a\u3000"), u"\t a\u3000");
}

TEST(Text, SplitsAtEverySeparator) {
  using Pieces = std::vector<std::u16string_view>;
  EXPECT_EQ(Split(u"", u'\t'), Pieces({u""}));
  EXPECT_EQ(Split(u"a", u'\t'), Pieces({u"a"}));
  EXPECT_EQ(Split(u"\ta\t\tb\t", u'\t'), Pieces({u"", u"a", u"", u"b", u""}));
}

TEST(Text, ReplacesFromLeftToRightAndNeverInsideTheReplacement) {
  EXPECT_EQ(ReplaceAll(u"it's ''", u"'", u"''"), u"it''s ''''");
  EXPECT_EQ(ReplaceAll(u"aaa", u"aa", u"b"), u"ba");
  EXPECT_EQ(ReplaceAll(u"abc", u"x", u"y"), u"abc");
  EXPECT_EQ(ReplaceAll(u"abab", u"ab", u""), u"");
}

TEST(Text, UpperCasesByThePlatformsTable) {
  struct {
    std::u16string_view text;
    std::u16string_view capitals;
  } const kCases[] = {
      {u"az[`{1", u"AZ[`{1"},
      {u"\uFF41\uFF5A", u"\uFF21\uFF3A"},
      {u"αω\u03C2", u"ΑΩ\u03C2"},
      {u"аяё", u"АЯЁ"},
      {u"ⅰⅹⓐ", u"ⅠⅩⒶ"},
      {u"éüÿ", u"ÉÜ\u0178"},
      {u"ß\uFB00\u0149\u0390", u"ß\uFB00\u0149\u0390"},
      {u"\u0131\u0130\u017F\u00B5", u"\u0131\u0130\u017F\u00B5"},
      {u"\u01C6\u01C5", u"\u01C4\u01C5"},
      {u"\u03D0\u03D1\u03D5\u03D6\u03F0\u03F1\u03F5\u0345\u1E9B\u1FBE",
       u"\u03D0\u03D1\u03D5\u03D6\u03F0\u03F1\u03F5\u0345\u1E9B\u1FBE"},
      {u"\u1F80\u1FF3", u"\u1F88\u1FFC"},
      {u"\u0144\u0148\u0251\u0261", u"\u0143\u0147\u2C6D\uA7AC"},
      {u"\U00010428中", u"\U00010428中"},
  };
  for (const auto& [text, capitals] : kCases) {
    EXPECT_EQ(Readable(UpperCase(text)), Readable(capitals)) << Readable(text);
  }
}

TEST(Text, UpperCaseMapsAsManyLettersAsThePlatform) {
  int mapped = 0;
  for (char32_t unit = 0; unit < 0x10000; ++unit) {
    mapped += UpperCase(static_cast<char16_t>(unit)) != unit ? 1 : 0;
  }
  EXPECT_EQ(mapped, 1163);
}

TEST(Text, LowerCasesBeyondAscii) {
  EXPECT_EQ(LowerCase(u"NaMe ÄЯ中"), u"name äя中");
}

TEST(Utf8, KeepsEveryByteThatIsNoText) {
  struct {
    std::string_view bytes;
    std::u16string_view text;
  } const kCases[] = {
      {"plain ASCII, longer than a block", u"plain ASCII, longer than a block"},
      {"\xE4\xB8\xAD\xC3\xA9\xF0\x9F\x98\x80x", u"中é\U0001F600x"},
      {"12345678\x80", u"12345678\xDC80"},
      {"\xE4\xB8", u"\xDCE4\xDCB8"},
      {"\xE4\xB8"
       "A",
       u"\xDCE4\xDCB8"
       u"A"},
      {"\xC0\xAF", u"\xDCC0\xDCAF"},
      {"\xE0\x80\x80", u"\xDCE0\xDC80\xDC80"},
      {"\xED\xA0\x80", u"\xDCED\xDCA0\xDC80"},
      {"\xF4\x90\x80\x80", u"\xDCF4\xDC90\xDC80\xDC80"},
      {"\xF4\x8F\xBF\xBF", u"\U0010FFFF"},
      {"\xFF\xFE", u"\xDCFF\xDCFE"},
  };
  for (const auto& [bytes, text] : kCases) {
    EXPECT_EQ(Readable(FromUtf8(bytes)), Readable(text));
    EXPECT_EQ(ToUtf8(text), bytes);
  }
}

TEST(Utf8, HalvesThatAreNoBytesGetAThreeByteFormOrAreRefused) {
  std::string bytes = "x";
  EXPECT_TRUE(EncodeUtf8(u"\xDC80\xD83D\xDE00", bytes));
  for (const char16_t half : {u'\xD800', u'\xDBFF', u'\xDC7F', u'\xDD00', u'\xDFFF'}) {
    EXPECT_FALSE(EncodeUtf8({&half, 1}, bytes)) << static_cast<int>(half);
  }
  EXPECT_EQ(bytes, "x\x80\xF0\x9F\x98\x80");
  EXPECT_EQ(ToUtf8(u"\xD83D"), "\xED\xA0\xBD");
}

TEST(Utf8, EncodesTextLongerThanItsPiece) {
  std::u16string text;
  std::string bytes;
  for (int i = 0; i < 1500; ++i) {
    text += u"a中\U0001F600";
    bytes += "a\xE4\xB8\xAD\xF0\x9F\x98\x80";
  }
  EXPECT_EQ(ToUtf8(text), bytes);
  EXPECT_EQ(FromUtf8(bytes), text);
}

}  // namespace
}  // namespace lexmill::platform
