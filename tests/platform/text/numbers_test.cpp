// SPDX-License-Identifier: MIT
#include "platform/text/numbers.h"

#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "platform/failure.h"
#include "platform/text/text.h"
#include "tests/support/readable_text.h"

namespace lexmill::platform {
namespace {

using test::Readable;

TEST(Numbers, TakesWhatThePlatformsParserTakes) {
  for (const auto text :
       Split(u"12|00012| 12|12 |  12  |\t1|1\t|+5|5+|+ 5|-5|5-|- 5|5 -| - 5 | 5 - |-0|0|1,234|"
             u"1,2,3|1,,2|5,|1,234.5,6|1.5,6|.5,6|1.5|.5|5.|-.5|1e5|1E5|1e+5|1e-5|1d5|1D-3|"
             u"1.5e3-|1e308|1e-400|0e400|0e99999999999999999999|1e-99999999999999999999|"
             u"99999999999999999999",
             u'|')) {
    EXPECT_TRUE(IsNumeric(text)) << Readable(text);
  }
}

TEST(Numbers, RefusesWhatThePlatformsParserRefuses) {
  for (const auto text :
       Split(u"| |\t|\u00A0|.|-.|,|,5|-,5|.,5|--5|+-5|-5-|5--|-|+|- |1.2.3|1e|1e+|e5|.e5|1e5.5|"
             u"1e5,5|1e 5|1 e5|1 2|12 34|1\u00A0234|1_000|1'000|1%|1L|1#|0x1F|1a|a1|infinity|"
             u"inf|nan|True|½|\u0661|\uFEFF1|1:2|1/2|2024-01-01|#1#|1e309|-1e400|"
             u"1e99999999999999999999|&H1F|&O17|$5|¥5|(5)|(5|１２|1\n|\u30001",
             u'|')) {
    EXPECT_FALSE(IsNumeric(text)) << Readable(text);
  }
  EXPECT_FALSE(IsNumeric(std::u16string_view(u"1\0", 2)));
}

TEST(Numbers, LongDigitsCountByTheirValue) {
  const std::u16string zeros(400, u'0');
  EXPECT_FALSE(IsNumeric(u"1" + zeros));
  EXPECT_FALSE(IsNumeric(u"1" + zeros + u"e-5"));
  EXPECT_TRUE(IsNumeric(u"1" + zeros + u"e-400"));
  EXPECT_TRUE(IsNumeric(u"0." + zeros + u"1"));
  EXPECT_TRUE(IsNumeric(u"0." + zeros + u"1e10"));
  EXPECT_TRUE(IsNumeric(zeros));
}

/// The number, or the failure's number after "err ".
template <class Integer>
std::string Outcome(Integer (*convert)(std::u16string_view), std::u16string_view text) {
  try {
    return std::to_string(convert(text));
  } catch (const Failure& failure) {
    return "err " + std::to_string(failure.Number());
  }
}

TEST(Numbers, ConvertsToIntegersWithTiesToEven) {
  struct {
    std::u16string_view text;
    const char* int32;
    const char* int16;
  } const kCases[] = {
      {u"0.5", "0", "0"},
      {u"1.5", "2", "2"},
      {u"2.5", "2", "2"},
      {u"3.5", "4", "4"},
      {u"-0.5", "0", "0"},
      {u"-1.5", "-2", "-2"},
      {u"2.5-", "-2", "-2"},
      {u"0.50000000001", "1", "1"},
      {u"2147483647", "2147483647", "err 6"},
      {u"2147483647.4", "2147483647", "err 6"},
      {u"2147483647.5", "err 6", "err 6"},
      {u"-2147483648", "-2147483648", "err 6"},
      {u"-2147483648.5", "-2147483648", "err 6"},
      {u"-2147483649", "err 6", "err 6"},
      {u"1e9", "1000000000", "err 6"},
      {u"1e10", "err 6", "err 6"},
      {u"9e5", "900000", "err 6"},
      {u"1e4", "10000", "10000"},
      {u" 7 ", "7", "7"},
      {u"1,000", "1000", "1000"},
      {u"32767.4", "32767", "32767"},
      {u"32767.5", "32768", "err 6"},
      {u"-32768.5", "-32768", "-32768"},
      {u"1e-400", "0", "0"},
      {u"", "err 13", "err 13"},
      {u"abc", "err 13", "err 13"},
      {u"True", "err 13", "err 13"},
  };
  for (const auto& [text, int32, int16] : kCases) {
    EXPECT_EQ(Outcome(&ToInt32, text), int32) << Readable(text);
    EXPECT_EQ(Outcome<std::int16_t>(&ToInt16, text), int16) << Readable(text);
  }
}

TEST(Numbers, NarrowsOnlyWhatFits) {
  EXPECT_EQ(ToInt16(std::int64_t{-32768}), -32768);
  EXPECT_EQ(ToInt16(std::int64_t{32767}), 32767);
  EXPECT_THROW(static_cast<void>(ToInt16(std::int64_t{32768})), Failure);
  EXPECT_THROW(static_cast<void>(ToInt16(std::int64_t{65536})), Failure);
}

TEST(Numbers, GroupsDigitsByThree) {
  struct {
    std::int64_t number;
    std::u16string_view text;
  } const kCases[] = {
      {0, u"0"},
      {7, u"7"},
      {999, u"999"},
      {1000, u"1,000"},
      {-999, u"-999"},
      {-1234567, u"-1,234,567"},
      {2147483647, u"2,147,483,647"},
      {std::numeric_limits<std::int64_t>::min(), u"-9,223,372,036,854,775,808"},
  };
  for (const auto& [number, text] : kCases) {
    EXPECT_EQ(Readable(FormatGrouped(number)), Readable(text));
  }
  EXPECT_EQ(ToText(-62), u"-62");
}

}  // namespace
}  // namespace lexmill::platform
