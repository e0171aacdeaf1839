// SPDX-License-Identifier: MIT
#include "platform/controls/entered_path.h"

#include <gtest/gtest.h>

#include "tests/support/readable_text.h"

namespace lexmill::platform {
namespace {

TEST(EnteredPath, IsWhatTheUserMeans) {
  struct Case {
    std::u16string_view entered;
    std::u16string_view path;
  };
  const Case cases[] = {
      {u"/a/b.glo", u"/a/b.glo"},
      {u"/a/b.glo\r\n\n", u"/a/b.glo"},
      {u"\n", u""},
      {u"/a/ b%20 ", u"/a/ b%20 "},  // a name like any other
      {u"file:///a%20b/%E5%AD%97.glo", u"/a b/字.glo"},
      {u"FILE://localhost/a%2fb\n", u"/a/b"},
      {u"file:///字", u"/字"},
      {u"file:///%D7%D6.glo", u"/\xDCD7\xDCD6.glo"},  // bytes that are no UTF-8
      {u"file:///100%/%4/%zz%00", u"/100%/%4/%zz%00"},
      {u"file://elsewhere/a", u"file://elsewhere/a"},
      {u"https://lexmill.example/%20", u"https://lexmill.example/%20"},
  };
  for (const Case& row : cases) {
    EXPECT_EQ(EnteredPath(row.entered), row.path) << test::Readable(row.entered);
  }
}

}  // namespace
}  // namespace lexmill::platform
