// SPDX-License-Identifier: MIT
#include "platform/sqlite/upper.h"

#include <string>

#include <gtest/gtest.h>

namespace lexmill::platform::sqlite {
namespace {

TEST(SqliteUpper, ChangesWholeCharacters) {
  const struct {
    const char* name;
    std::string bytes;
    std::string upper;
    int page = 936;
  } cases[] = {
      {"ASCII", "a{zZ9`\x7F", "A{ZZ9`\x7F"},
      {"trail bytes a to z stay",
       "\x81\x61\xFE\x7A"
       "b",
       "\x81\x61\xFE\x7A"
       "B"},
      {"full width", "\xA3\xE1\xA3\xFA", "\xA3\xC1\xA3\xDA"},
      {"Greek", "\xA6\xC1\xA6\xD8", "\xA6\xA1\xA6\xB8"},
      {"Cyrillic", "\xA7\xD1\xA7\xF1", "\xA7\xA1\xA7\xC1"},
      {"small Roman numbers", "\xA2\xA1", "\xA2\xF1"},
      {"bytes that are no text", "a\x81", "A\x81"},
      {"euro sign",
       "\x80"
       "a",
       "\x80"
       "A"},
      {"another page, which lacks the capital of 83", "\xE9\xFF\x83", "\xC9\x9F\x83", 1252},
  };
  for (const auto& expected : cases) {
    SCOPED_TRACE(expected.name);
    std::string upper;
    AppendUpper(expected.bytes, *CodePage::Open(expected.page), upper);
    EXPECT_EQ(upper, expected.upper);
  }
}

}  // namespace
}  // namespace lexmill::platform::sqlite
