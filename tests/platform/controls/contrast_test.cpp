// SPDX-License-Identifier: MIT
#include "platform/controls/contrast.h"

#include <gtest/gtest.h>

namespace lexmill::platform {
namespace {

// Ratios of the guidelines' own examples, colours as 0xBBGGRR.
TEST(Contrast, IsThatOfTheGuidelines) {
  EXPECT_DOUBLE_EQ(Contrast(kBlack, kWhite), 21);
  EXPECT_DOUBLE_EQ(Contrast(0x336699, 0x336699), 1);
  EXPECT_NEAR(Contrast(0x767676, kWhite), 4.54, 0.01);
  EXPECT_NEAR(Contrast(kWhite, 0x0000FF), 4.00, 0.01);
}

TEST(Contrast, IsWorkedOutOnDarkBackgroundsOnly) {
  constexpr Color kDarkGrey = 0x282828;
  constexpr Color kBlue = 0xC56A31;
  EXPECT_LT(Contrast(kBlue, kDarkGrey), kTextContrast);
  const Color readable = ReadableOnDark(kBlue, kDarkGrey, kTextContrast);
  EXPECT_GE(Contrast(readable, kDarkGrey), kTextContrast);
  EXPECT_LT(Contrast(readable, kDarkGrey), kTextContrast + 0.2) << "no lighter than need be";
  EXPECT_EQ(ReadableOnDark(readable, kDarkGrey, kTextContrast), readable);
  EXPECT_EQ(ReadableOnDark(0xF0F0F0, kWhite, kTextContrast), 0xF0F0F0U);
}

}  // namespace
}  // namespace lexmill::platform
