// SPDX-License-Identifier: MIT
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "platform/text/numbers.h"
#include "run/shared/file_extension.h"
#include "run/shared/string_tally.h"
#include "tests/support/failures.h"
#include "tests/support/readable_text.h"

namespace lexmill {
namespace {

using test::Readable;

TEST(ChangeFileExtension, TakesEverythingBeforeTheLastPoint) {
  struct Case {
    std::u16string_view path;
    std::string_view changed;
  };
  const Case cases[] = {
      {u"rad1.tmp", "rad1.sql"}, {u"/a/b.u.txt", "/a/b.u.sql"},
      {u"/a.b/name", "/a.sql"},  // the point of a folder
      {u".hidden", ".sql"},      {u"a.", "a.sql"},
  };
  for (const Case& row : cases) {
    EXPECT_EQ(Readable(modMain::ChangeFileExtension(row.path, u".sql")), row.changed);
  }
}

TEST(StringTally, CountsEntriesThroughTheGrowthOfItsTable) {
  StringTally tally;
  const auto string = [](int number) { return platform::ToText(number); };
  constexpr int kStrings = 5000;
  for (int i = 0; i < kStrings; ++i) {
    tally.Add(string(i));
    tally.Add(string(i % 10));
  }
  EXPECT_EQ(tally.Translate(string(kStrings)), StringTally::Gained{});
  EXPECT_EQ(tally.Translate(string(3)), StringTally::Gained{.filled = kStrings / 10 + 1});
  EXPECT_EQ(tally.Translate(string(3)), StringTally::Gained{.several = kStrings / 10 + 1});
  EXPECT_EQ(tally.Translate(string(3)), StringTally::Gained{});
  for (int i = 10; i < kStrings; ++i) {
    ASSERT_EQ(tally.Translate(string(i)), StringTally::Gained{.filled = 1}) << i;
  }
}

TEST(StringTally, EndsAStringAtANulAsTheDatabaseDoes) {
  StringTally tally;
  EXPECT_EQ(tally.Translate(u"a"), StringTally::Gained{});
  tally.Add(std::u16string_view(u"a\0b", 3));
  tally.Add(u"a");
  EXPECT_EQ(tally.Translate(u"a"), StringTally::Gained{.filled = 2});
}

TEST(ChangeFileExtension, FailsWithoutAnyPoint) {
  for (const std::u16string_view path : {u"", u"name", u"/folder/name"}) {
    EXPECT_EQ(test::FailureOf([&] { std::ignore = modMain::ChangeFileExtension(path, u".sql"); }),
              5);
  }
}

}  // namespace
}  // namespace lexmill
