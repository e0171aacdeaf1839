// SPDX-License-Identifier: MIT
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "run/shared/file_extension.h"
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

TEST(ChangeFileExtension, FailsWithoutAnyPoint) {
  for (const std::u16string_view path : {u"", u"name", u"/folder/name"}) {
    EXPECT_EQ(test::FailureOf([&] { std::ignore = modMain::ChangeFileExtension(path, u".sql"); }),
              5);
  }
}

}  // namespace
}  // namespace lexmill
