// SPDX-License-Identifier: MIT
// Numbers, letters and the code page beside those of the system.
#include <windows.h>
// After the system's own.
#include <oleauto.h>

#include <gtest/gtest.h>

#include "platform/failure.h"
#include "platform/text/ansi_text.h"
#include "platform/text/numbers.h"
#include "platform/text/text.h"
#include "tests/support/readable_text.h"

namespace lexmill::platform {
namespace {

using test::Readable;

constexpr UINT kPage = 936;
constexpr LCID kChinese = 0x0804;
constexpr unsigned kUnits = 0x10000;

/// `text` as the system's functions ask for it, which change nothing of it.
OLECHAR* Wide(std::u16string& text) {
  return reinterpret_cast<OLECHAR*>(text.data());
}

bool IsSurrogate(unsigned unit) {
  return unit >= 0xD800 && unit <= 0xDFFF;
}

std::u16string TheirDecoding(const std::string& bytes) {
  wchar_t units[8];
  const int length = MultiByteToWideChar(kPage, MB_ERR_INVALID_CHARS, bytes.data(),
                                         static_cast<int>(bytes.size()), units, 8);
  return {units, units + length};
}

/// Ours as the system says it: nothing at all where a byte is no text.
std::u16string OurDecoding(const CodePage& page, const std::string& bytes) {
  std::u16string text;
  page.Decode(bytes, text);
  return std::ranges::any_of(text, IsSurvivingByte) ? std::u16string() : text;
}

TEST(TextServices, DecodeAllCodesOfPage936) {
  const auto page = CodePage::Open(kPage);
  for (unsigned code = 0; code < kUnits; ++code) {
    const std::string bytes = {static_cast<char>(code >> 8U), static_cast<char>(code & 0xFFU)};
    // A lone FF has a character of the page's user-defined ones; Wine refuses it.
    if (bytes.find('\xFF') == std::string::npos) {
      ASSERT_EQ(OurDecoding(*page, bytes), TheirDecoding(bytes)) << std::hex << code;
    }
  }
}

TEST(TextServices, EncodeAllUnitsToPage936) {
  const auto page = CodePage::Open(kPage);
  for (unsigned unit = 0; unit < kUnits; ++unit) {
    if (IsSurrogate(unit) || unit == 0xF8F5) {
      continue;
    }
    const auto wide = static_cast<wchar_t>(unit);
    char bytes[8];
    BOOL isMissing = FALSE;
    const int length = WideCharToMultiByte(kPage, WC_NO_BEST_FIT_CHARS, &wide, 1, bytes,
                                           sizeof bytes, nullptr, &isMissing);
    std::string ours;
    const bool isEncoded = page->Encode(std::u16string(1, static_cast<char16_t>(unit)), ours);
    // Four bytes are what carries the page on beyond its own characters.
    ASSERT_EQ(isEncoded && ours.size() < 4, isMissing == FALSE) << std::hex << unit;
    if (isMissing == FALSE) {
      ASSERT_EQ(ours, std::string(bytes, bytes + length)) << std::hex << unit;
    }
  }
}

char16_t TheirCase(DWORD direction, unsigned unit) {
  const auto wide = static_cast<wchar_t>(unit);
  wchar_t mapped = 0;
  LCMapStringEx(LOCALE_NAME_INVARIANT, direction, &wide, 1, &mapped, 1, nullptr, nullptr, 0);
  return mapped;
}

TEST(TextServices, MapCase) {
  std::u16string otherSmall;
  for (unsigned unit = 1; unit < kUnits; ++unit) {
    const auto ours = static_cast<char16_t>(unit);
    ASSERT_EQ(UpperCase(ours), TheirCase(LCMAP_UPPERCASE, unit)) << std::hex << unit;
    if (!IsSurrogate(unit) &&
        LowerCase(std::u16string(1, ours))[0] != TheirCase(LCMAP_LOWERCASE, unit)) {
      otherSmall += ours;
    }
  }
  // Small letters serve to compare names of ours only, for which Unicode's own mapping is right.
  EXPECT_EQ(otherSmall.size(), 10U) << Readable(otherSmall);
}

TEST(TextServices, TakeNumbers) {
  constexpr std::u16string_view kTexts =
      u"12|00012| 12|12 |\t1|1\t|+5|-5|- 5|1,234|1,2,3|5,|1.5|.5|5.|1,234.5|1e5|1E5|"
      u"1e+5|1e-5|1e308|-0|99999999999999999999|1e309|| |.|-.|,|,5|--5|-5-|(5|5)|-|+|"
      u"1.2.3|1e|1e+|e5|1e5.5|1e 5|1 2|1_000|1%|0x1F|1a|a1|nan|True|\u00BD|\u0661|1:2|"
      u"1/2|2147483647.4|2147483647.5|-2147483648.5|-2147483649|32767.5|0.5|1.5|2.5|"
      u"-0.5|0.50000000001";
  for (const std::u16string_view piece : Split(kTexts, u'|')) {
    std::u16string text(piece);
    SCOPED_TRACE(Readable(text));
    double real = 0;
    EXPECT_EQ(IsNumeric(text), VarR8FromStr(Wide(text), kChinese, 0, &real) == S_OK);
    LONG whole = 0;
    const HRESULT theirs = VarI4FromStr(Wide(text), kChinese, 0, &whole);
    try {
      EXPECT_EQ(ToInt32(text), whole);
      EXPECT_EQ(theirs, S_OK);
    } catch (const Failure&) {
      EXPECT_NE(theirs, S_OK);
    }
  }
}

}  // namespace
}  // namespace lexmill::platform
