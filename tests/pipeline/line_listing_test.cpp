// SPDX-License-Identifier: MIT
#include "pipeline/line_listing.h"

#include <gtest/gtest.h>

#include "platform/host/clock.h"
#include "tests/support/failures.h"
#include "tests/support/headless_window.h"
#include "tests/support/readable_text.h"

namespace lexmill {
namespace {

using test::Ansi;

TEST(LineListing, DropsEightCharactersOfEachLineAndKeepsEmptyOnes) {
  const test::HeadlessWindow world;
  const auto listing = world.folder.File("listing.txt");
  const auto result = world.folder.File("result.txt");
  test::WriteBytes(listing, Ansi("   o0 = 12:Open\n   o2 =   打开\n\n   o0 = 13:\n   o2 = \n"));
  ConvertLineListing(listing, result);
  EXPECT_EQ(test::ReadBytes(result), Ansi("\n12:Open\n  打开\n\n13:\n\n"));
}

TEST(LineListing, LeavesOneEmptyLineForAnEmptyListingAndNothingForAMissingOne) {
  const test::HeadlessWindow world;
  const auto result = world.folder.File("result.txt");
  EXPECT_EQ(test::FailureOf([&] { ConvertLineListing(world.folder.File("no.txt"), result); }), 53);
  EXPECT_EQ(world.folder.Listing(), "");
  test::WriteBytes(world.folder.File("empty.txt"), "");
  EXPECT_EQ(test::FailureOf([&] { ConvertLineListing(world.folder.File("empty.txt"), result); }),
            62);
  EXPECT_EQ(test::ReadBytes(result), "\r\n");
}

TEST(LineListing, GrowsStarsFromOneToSixAndEndsWithItsTime) {
  test::HeadlessWindow world;
  std::int32_t now = 0;
  platform::OverrideClock(
      {.tickCount = [&] { return now += 501; }, .dayAndHour = {}, .random = {}});
  std::string shown;
  world.session.onDoEvents = [&] {
    shown += test::Readable(world.window.lblState(3).Caption()) + " ";
  };
  world.window.lblState(3).Caption(u"时间: 1ms");
  const auto listing = world.folder.File("listing.txt");
  test::WriteBytes(listing, "   o0 = 1\n\n\n\n\n\n\n\n");
  ConvertLineListing(listing, world.folder.File("result.txt"));
  platform::OverrideClock({});
  EXPECT_TRUE(shown.starts_with("* ** *** **** ***** ****** * ** 时间: ")) << shown;
}

}  // namespace
}  // namespace lexmill
