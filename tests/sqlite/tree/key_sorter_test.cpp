// SPDX-License-Identifier: MIT
#include "platform/sqlite/tree/key_sorter.h"

#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "tests/support/files.h"

namespace lexmill::test {
namespace {

using platform::sqlite::KeySorter;

struct Load {
  const char* name;
  std::size_t strings;
  std::size_t bufferSize;
};

class Sorting : public testing::TestWithParam<Load> {};

TEST_P(Sorting, GivesAllStringsInTheOrderOfTheirBytes) {
  const TemporaryFolder folder;
  KeySorter sorter((folder.Path() / "t.db").string(), GetParam().bufferSize);
  std::mt19937 random(7);
  std::vector<std::string> expected;
  for (std::size_t i = 0; i < GetParam().strings; ++i) {
    // Long common beginnings, NUL bytes, bytes from 0x80 on, empty and equal strings.
    std::string text(random() % 12, random() % 4 == 0 ? '\0' : 'a');
    for (auto more = random() % 3; more > 0; --more) {
      text += static_cast<char>(random());
    }
    text += i % 1000 == 999 ? std::string(50000, 'z') : "";
    sorter.Add({std::string_view(text).substr(0, 3),
                std::string_view(text).substr(std::min<std::size_t>(3, text.size()))});
    expected.push_back(text);
  }
  EXPECT_EQ(sorter.Count(), expected.size());
  std::ranges::sort(expected);
  sorter.Sort();
  std::string_view text;
  for (const std::string& next : expected) {
    ASSERT_TRUE(sorter.Next(text));
    ASSERT_EQ(text, next);
  }
  EXPECT_FALSE(sorter.Next(text));
  EXPECT_EQ(folder.Listing(), "");
}

// Down and up again: first, middle and last string are near the ends of the order, so that they
// part nearly nothing off.
TEST(SortingOfOrderedStrings, NeedsNoStackForEachString) {
  const TemporaryFolder folder;
  constexpr int kStrings = 400'000;
  KeySorter sorter((folder.Path() / "t.db").string(), std::size_t{64} << 20U);
  for (int i = 0; i < kStrings; ++i) {
    const int rank = i < kStrings / 2 ? kStrings - 2 * i : 2 * i - kStrings + 1;
    sorter.Add({std::to_string(1'000'000 + rank)});
  }
  sorter.Sort();
  std::string_view text;
  for (int i = 0; i < kStrings; ++i) {
    ASSERT_TRUE(sorter.Next(text));
    ASSERT_EQ(text, std::to_string(1'000'001 + i));
  }
}

INSTANTIATE_TEST_SUITE_P(Loads, Sorting,
                         testing::Values(Load{"Nothing", 0, 65536}, Load{"InMemory", 3000, 1048576},
                                         Load{"InManyRuns", 20000, 16384}),
                         [](const auto& parameter) { return parameter.param.name; });

}  // namespace
}  // namespace lexmill::test
