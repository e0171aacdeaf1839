// SPDX-License-Identifier: MIT
#include "platform/text/ansi_text.h"

#include <array>
#include <cstdlib>
#include <optional>
#include <random>
#include <span>

#include <gtest/gtest.h>
#include <unicode/ucnv.h>
#include <unicode/utf16.h>

#include "platform/failure.h"
#include "tests/support/readable_text.h"

namespace lexmill::platform {
namespace {

using test::Readable;

/// The machine's own converter, asked directly.
class Oracle {
 public:
  explicit Oracle(const char* name) {
    UErrorCode status = U_ZERO_ERROR;
    converter_.reset(ucnv_open(name, &status));
    ucnv_setToUCallBack(converter_.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                        &status);
    ucnv_setFromUCallBack(converter_.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                          &status);
    EXPECT_TRUE(U_SUCCESS(status)) << name;
  }

  std::u16string Decode(std::string_view bytes) {
    std::array<char16_t, 8> text;
    UErrorCode status = U_ZERO_ERROR;
    const auto length = ucnv_toUChars(converter_.get(), text.data(), 8, bytes.data(),
                                      static_cast<int32_t>(bytes.size()), &status);
    return U_SUCCESS(status) ? std::u16string(text.data(), static_cast<std::size_t>(length)) : u"";
  }

  std::string Encode(std::u16string_view text) {
    std::array<char, 16> bytes;
    UErrorCode status = U_ZERO_ERROR;
    const auto length = ucnv_fromUChars(converter_.get(), bytes.data(), 16, text.data(),
                                        static_cast<int32_t>(text.size()), &status);
    return U_SUCCESS(status) ? std::string(bytes.data(), static_cast<std::size_t>(length)) : "";
  }

 private:
  std::unique_ptr<UConverter, decltype(&ucnv_close)> converter_{nullptr, &ucnv_close};
};

std::u16string Decode(const CodePage& page, std::string_view bytes) {
  std::u16string text;
  page.Decode(bytes, text);
  return text;
}

std::optional<std::string> Encode(const CodePage& page, std::u16string_view text) {
  std::string bytes;
  return page.Encode(text, bytes) ? std::optional(bytes) : std::nullopt;
}

std::string Bytes(unsigned first, unsigned second) {
  return {static_cast<char>(first), static_cast<char>(second)};
}

std::u16string Character(char32_t codePoint) {
  if (U_IS_BMP(codePoint)) {
    return std::u16string(1, static_cast<char16_t>(codePoint));
  }
  return {U16_LEAD(codePoint), U16_TRAIL(codePoint)};
}

struct Vector {
  std::string_view bytes;
  std::u16string_view text;
};

void ExpectBothWays(const CodePage& page, std::span<const Vector> vectors) {
  for (const auto& [bytes, text] : vectors) {
    EXPECT_EQ(Readable(Decode(page, bytes)), Readable(text));
    EXPECT_EQ(Encode(page, text), bytes) << Readable(text);
  }
}

void ExpectShortSequencesSurvive(const CodePage& page) {
  for (unsigned first = 0; first <= 0xFF; ++first) {
    const std::string single = Bytes(first, 0).substr(0, 1);
    EXPECT_EQ(Encode(page, Decode(page, single)), single) << first;
    for (unsigned second = 0; second <= 0xFF; ++second) {
      const std::string bytes = Bytes(first, second);
      ASSERT_EQ(Encode(page, Decode(page, bytes)), bytes) << first << ' ' << second;
    }
  }
}

TEST(AnsiText, ReadsAllPairsOfThePage) {
  Oracle oracle("windows-936-2000");
  int pairs = 0;
  for (unsigned lead = 0x81; lead <= 0xFE; ++lead) {
    for (unsigned trail = 0x40; trail <= 0xFE; ++trail) {
      if (trail == 0x7F) {
        continue;
      }
      const std::string bytes = Bytes(lead, trail);
      const std::u16string text = FromAnsi(bytes);
      EXPECT_EQ(Readable(text), Readable(oracle.Decode(bytes)));
      EXPECT_EQ(text.size(), 1U);
      ++pairs;
    }
  }
  EXPECT_EQ(pairs, 23940);
}

TEST(AnsiText, KnownBytesOfKnownCharacters) {
  const Vector kVectors[] = {
      {"plain ASCII, longer than one block\r\n\t\x1A\x7F",
       u"plain ASCII, longer than one block\r\n\t\x1A\x7F"},
      {"\x80", u"\u20AC"},
      {"\xFF", u"\uF8F5"},
      {"\xB0\x80", u"\u769C"},
      {"\xA3\xBA\xA1\xAD\xA1\xAA\xA8\x43", u"\uFF1A\u2026\u2014\u2013"},
      {"\xA1\xA4\xA1\xA1\xA3\xA4", u"\u00B7\u3000\uFFE5"},
      {"\xA8\xA6", u"\u00E9"},
      {"\x81\x30\x81\x30", u"\u0080"},
      {"\x81\x30\x84\x38", u"\u00A9"},
      {"\x84\x31\xA4\x39", u"\uFFFF"},
      {"\x90\x30\x81\x30", u"\U00010000"},
      {"\x94\x39\xFC\x36", u"\U0001F600"},
      {"\xE3\x32\x9A\x35", u"\U0010FFFF"},
  };
  ExpectBothWays(AnsiCodePage(), kVectors);
}

TEST(AnsiText, OneByteThatIsNoTextSwallowsNothingAfterIt) {
  const Vector kVectors[] = {
      {"\xB0\t\xB0\n\xB0\r\xB0\"\xB0:", u"\xDCB0\t\xDCB0\n\xDCB0\r\xDCB0\"\xDCB0:"},
      {"\xB0\x7F\xB0\xFF", u"\xDCB0\x7F\xDCB0\uF8F5"},
      {"a\xB0", u"a\xDCB0"},
      {std::string_view("\xB0\0\xB0", 3), std::u16string_view(u"\xDCB0\0\xDCB0", 3)},
      {"\x81\x30\x81\x41",
       u"\xDC81"
       u"0\u4E04"},
  };
  ExpectBothWays(AnsiCodePage(), kVectors);
  // A form that is cut off, GB18030's form of U+F8F5, which has the byte FF here, and forms that no
  // character has.
  for (const std::string_view bytes : {"\x81\x30\x81", "\x83\x39\xFE\x30", "\xFE\x39\xFE\x39",
                                       "\x84\x31\xA5\x30", "\xE3\x32\x9A\x36"}) {
    std::u16string text;
    for (const unsigned char byte : bytes) {
      text += static_cast<char16_t>(byte < 0x80 ? byte : 0xDC00 + byte);
    }
    ExpectBothWays(AnsiCodePage(), std::array{Vector{bytes, text}});
  }
}

/// GB18030's own bytes for `unit`, which the page lacks; where these are two and the page reads
/// them as another character, that one's four.
std::string ExpectedForm(Oracle& gb18030, Oracle& page, const std::u16string& unit, int& swaps) {
  const std::string bytes = gb18030.Encode(unit);
  if (bytes.size() == 4) {
    return bytes;
  }
  ++swaps;
  return gb18030.Encode(page.Decode(bytes));
}

TEST(AnsiText, ExtendsThePageByGb18030AndSwapsWhatItReadsOtherwise) {
  Oracle gb18030("gb18030");
  Oracle page("windows-936-2000");
  int swaps = 0;
  for (char32_t unit = 0x80; unit <= 0xFFFF; ++unit) {
    const std::u16string text = Character(unit);
    if (U_IS_SURROGATE(unit) || page.Decode(page.Encode(text)) == text) {
      continue;
    }
    const std::string expected = ExpectedForm(gb18030, page, text, swaps);
    ASSERT_EQ(expected.size(), 4U);
    EXPECT_EQ(ToAnsi(text), expected) << Readable(text);
  }
  // 82 pairs are read differently by the two; one of them is the euro sign, which has the byte 80.
  EXPECT_EQ(swaps, 81);
}

TEST(AnsiText, EveryCharacterComesBack) {
  for (char32_t codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
    if (!U_IS_SURROGATE(codePoint)) {
      const std::u16string text = Character(codePoint);
      ASSERT_EQ(FromAnsi(ToAnsi(text)), text) << static_cast<std::uint32_t>(codePoint);
    }
  }
}

TEST(AnsiText, EveryByteSequenceComesBack) {
  ExpectShortSequencesSurvive(AnsiCodePage());
  // Bytes near the bounds of forms and pairs come up more often than others.
  constexpr std::string_view kBounds = "\x30\x39\x2F\x3A\x40\x7E\x7F\x80\x81\x84\x90\xE3\xFE\xFF\n";
  std::mt19937 random(1);
  for (int round = 0; round < 20000; ++round) {
    std::string bytes(random() % 40, '\0');
    for (char& byte : bytes) {
      byte = random() % 2 == 0 ? kBounds[random() % kBounds.size()]
                               : static_cast<char>(random() & 0xFF);
    }
    ASSERT_EQ(ToAnsi(FromAnsi(bytes)), bytes) << testing::PrintToString(bytes);
  }
}

TEST(AnsiText, HalfOfAPairHasNoBytesAndLeavesTheRestAsItWas) {
  for (const char16_t half : {u'\xD800', u'\xDBFF', u'\xDC7F', u'\xDD00', u'\xDFFF'}) {
    std::string bytes = "kept";
    const std::u16string text = std::u16string(2000, u'中') + half;
    EXPECT_FALSE(AnsiCodePage().Encode(text, bytes)) << static_cast<int>(half);
    EXPECT_EQ(bytes, "kept");
    EXPECT_THROW(static_cast<void>(ToAnsi(text)), Failure);
  }
}

TEST(AnsiText, CharacterLengthCountsBytesOfTheFirstCharacter) {
  struct {
    int page;
    std::string_view bytes;
    std::size_t length;
  } const kCases[] = {
      {936, "ab", 1},
      {936, "\xD6\xD0\xD6", 2},
      {936, "\xD6", 1},
      {936, "\x80\x80", 1},
      {936, "\xD6\n", 1},
      {936, "\x94\x39\xFC\x36\x41", 4},
      {936, "\x94\x39\xFC", 1},
      {932, "\x95\\x", 2},
      {932, "\xB1\xB1", 1},
      {1252, "\xE9\xE9", 1},
      {65001, "\xE4\xB8\xAD\xE4", 3},
      {65001, "\xE4\xB8", 1},
      {65001, "a", 1},
      {54936, "\x81\x30\x84\x38", 4},
      {950, "\xA4\xA4", 2},
  };
  for (const auto& [page, bytes, length] : kCases) {
    EXPECT_EQ(CodePage::Open(page)->CharacterLength(bytes), length) << page << ' ' << bytes;
  }
}

TEST(CodePage, KnownBytesOfOtherPages) {
  struct {
    int page;
    Vector vector;
  } const kCases[] = {
      {950, {"\xA4\xA4\xA4\xE5", u"中文"}},
      {932, {"\x93\xFA\x96\x7B\x95\x5C\xB1\\\x1A\x1C\x7F", u"日本表ｱ\\\x1A\x1C\x7F"}},
      {949, {"\xC7\xD1\xB1\xDB", u"한글"}},
      {1252, {"\xE9\x80", u"é€"}},
      {54936, {"\xA2\xE3\x81\x30\x84\x38", u"€©"}},
      {65001, {"\xE4\xB8\xAD\xFF\xF0\x9F\x98\x80", u"中\xDCFF\U0001F600"}},
  };
  for (const auto& [number, vector] : kCases) {
    ExpectBothWays(*CodePage::Open(number), {&vector, 1});
  }
}

TEST(CodePage, LacksWhatItHasNoExactBytesFor) {
  struct {
    int page;
    std::u16string_view text;
  } const kCases[] = {
      {1252, u"中"},      {1252, u"\u0100"},    {1252, u"\uFF21"}, {950, u"简"},
      {950, u"\u200B"},   {932, u"\U0001F600"}, {949, u"\uFEFF"},  {20127, u"é"},
      {65001, u"\xD83D"}, {1252, u"\xD83D"},
  };
  for (const auto& [page, text] : kCases) {
    EXPECT_EQ(Encode(*CodePage::Open(page), text), std::nullopt) << page << Readable(text);
  }
}

TEST(CodePage, ShortSequencesSurviveOnEveryPage) {
  for (const int page : {950, 932, 949, 1252, 54936, 65001, 20127}) {
    SCOPED_TRACE(page);
    ExpectShortSequencesSurvive(*CodePage::Open(page));
  }
}

TEST(CodePage, RefusesPagesThatAreUnknownOrKeepNoAscii) {
  for (const int page : {0, -1, 12345, 1200, 65000}) {
    EXPECT_THROW(static_cast<void>(CodePage::Open(page)), Failure) << page;
  }
}

void ExitAfterChoosing1252() {
  bool refused = false;
  try {
    SetAnsiCodePage(12345);
  } catch (const Failure&) {
    refused = !IsAnsiCodePageChosen() && FromAnsi("\xD6\xD0") == u"中";
  }
  SetAnsiCodePage(1252);
  const bool chosen = IsAnsiCodePageChosen() && FromAnsi("\xE9") == u"é";
  std::_Exit(refused && chosen ? 0 : 1);
}

TEST(CodePage, ChosenPageStaysForTheProcess) {
  EXPECT_FALSE(IsAnsiCodePageChosen());
  EXPECT_EXIT(ExitAfterChoosing1252(), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace lexmill::platform
