// SPDX-License-Identifier: MIT
#include "platform/host/host_path.h"

#include <gtest/gtest.h>

#include "tests/support/files.h"
#include "tests/support/readable_text.h"

namespace lexmill::platform {
namespace {

using test::Readable;
using test::SystemPath;

TEST(HostPath, ParentFolderIsTextWork) {
  struct {
    std::u16string_view path;
    std::u16string_view parent;
  } const kCases[] = {
      {u"", u""},
      {u"a", u""},
      {u"name.txt", u""},
      {u".", u""},
      {u"/", u""},
      {u"/a", u"/"},
      {u"/a/", u"/"},
      {u"/a/b.txt", u"/a"},
      {u"a/b", u"a"},
      {u"a/a//", u"a"},
      {u"/a//b", u"/a"},
      {u"a/a/a", u"a/a"},
      {u"/目录/文件", u"/目录"},
  };
  for (const auto& [path, parent] : kCases) {
    EXPECT_EQ(Readable(ParentFolder(path)), Readable(parent)) << Readable(path);
  }
}

TEST(HostPath, SeparatorsInARowCountAsOne) {
  EXPECT_EQ(ParentFolder(u"//"), u"");
  EXPECT_EQ(ParentFolder(u"//a"), u"/");
}

TEST(HostPath, FileNameFollowsTheLastSeparator) {
  EXPECT_EQ(FileName(u"/a/b.txt"), u"b.txt");
  EXPECT_EQ(FileName(u"b.txt"), u"b.txt");
  EXPECT_EQ(FileName(u"/a/"), u"");
}

TEST(HostPath, FolderGetsExactlyOneSeparator) {
  const std::string separator = SystemPath("/");
  for (const auto* folder : {u"/a", u"/a/", u"/a//"}) {
    EXPECT_EQ(Readable(WithSeparator(folder)), "/a" + separator);
  }
  EXPECT_EQ(Readable(WithSeparator(u"/")), separator);
  EXPECT_EQ(Readable(PathFrom(u"/a", u"b/c")), "/a" + separator + "b/c");
  EXPECT_EQ(PathFrom(u"/a", u"/b"), u"/b");
}

TEST(HostPath, NameWithBytesThatAreNoTextSurvives) {
  const std::string path = "/\xE4\xB8\xAD/\xD6\xD0.glo";
  EXPECT_EQ(HostPath(HostPath::FromNative(path).Text()).Native(), path);
}

}  // namespace
}  // namespace lexmill::platform
