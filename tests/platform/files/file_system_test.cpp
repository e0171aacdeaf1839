// SPDX-License-Identifier: MIT
#include "platform/files/file_system.h"

#include <array>

#include <gtest/gtest.h>

#include "platform/host/clock.h"
#include "platform/host/host_file.h"
#include "platform/host/host_path.h"
#include "tests/support/failures.h"
#include "tests/support/files.h"
#include "tests/support/hard_surroundings.h"
#include "tests/support/readable_text.h"

namespace lexmill::platform {
namespace {

using test::FailureOf;
using test::OrdinaryUser;
using test::Readable;
using test::ReadBytes;
using test::TemporaryFolder;
using test::WriteBytes;

std::u16string LongName() {
  return std::u16string(300, u'n');
}

class FileSystem : public testing::Test {
 protected:
  FileSystem() {
    WriteBytes(File("f"), "text");
    WriteBytes(File("readonly"), "text");
    std::filesystem::create_directory(folder_.Path() / "d");
    std::filesystem::permissions(folder_.Path() / "readonly", std::filesystem::perms(0444));
  }

  [[nodiscard]] std::u16string File(std::string_view name) const { return folder_.File(name); }
  [[nodiscard]] std::string Listing() const { return folder_.Listing(); }

  FileSystemObject files_;

 private:
  OrdinaryUser user_;
  TemporaryFolder folder_;
};

TEST_F(FileSystem, DistinguishesFilesFromFolders) {
  const struct {
    std::u16string path;
    bool isFile;
    bool isFolder;
  } cases[] = {{File("f"), true, false},
               {File("f/"), false, false},
               {File("d"), false, true},
               {File("d/"), false, true},
               {File("x"), false, false},
               {File("f*"), false, false},
               {u"", false, false},
               {File("f") + std::u16string(1, u'\0'), false, false},
               {std::u16string(kNullDevice), true, false}};
  for (const auto& row : cases) {
    SCOPED_TRACE(Readable(row.path));
    EXPECT_EQ(files_.FileExists(row.path), row.isFile);
    EXPECT_EQ(files_.FolderExists(row.path), row.isFolder);
  }
}

TEST_F(FileSystem, FailsWithThePlatformsNumbers) {
  const auto open = [this](const std::u16string& path) { std::ignore = files_.OpenTextFile(path); };
  const auto create = [this](const std::u16string& path) {
    std::ignore = files_.CreateTextFile(path, true);
  };
  const auto remove = [this](const std::u16string& path) { files_.DeleteFile(path); };
  const auto size = [this](const std::u16string& path) { std::ignore = files_.FileSize(path); };
  const auto binary = [](const std::u16string& path) { std::ignore = ReadBinary(path, 0, 1); };
  const struct {
    std::u16string path;
    int open, create, remove, size, binary;
  } cases[] = {{File("x"), 53, 0, 53, 53, 53},
               {File("none/x"), 76, 76, 76, 76, 76},
               {File("f/x"), 76, 76, 76, 76, 76},
               {File("d"), 70, 70, 53, 53, 75},
               {File("readonly"), 0, 70, 70, 0, 0},
               {u"", 5, 5, 5, 5, 5},
               {File("f") + std::u16string(1, u'\0'), 52, 52, 52, 52, 52},
               {File("") + LongName(), 52, 52, 52, 52, 52}};
  for (const auto& row : cases) {
    SCOPED_TRACE(Readable(row.path));
    EXPECT_EQ(FailureOf([&] { open(row.path); }), row.open);
    EXPECT_EQ(FailureOf([&] { remove(row.path); }), row.remove);
    EXPECT_EQ(FailureOf([&] { size(row.path); }), row.size);
    EXPECT_EQ(FailureOf([&] { binary(row.path); }), row.binary);
    EXPECT_EQ(FailureOf([&] { create(row.path); }), row.create);
  }
}

// A dictionary is read more than once; the first reading must not take away what a pipe holds.
TEST_F(FileSystem, LeavesAPipeUnread) {
  const HostPath path(File("pipe"));
  test::MakePipe(path.Text());
  HostFile writer = *HostFile::Open(path, OpenMode::ReadWrite);
  ASSERT_TRUE(writer.Write("abc"));
  EXPECT_EQ(FailureOf([this] { std::ignore = files_.OpenTextFile(File("pipe")); }), 70);
  std::array<char, 3> held = {};
  EXPECT_EQ(*writer.Read(held), 3U);
}

TEST_F(FileSystem, DeletesAFileWithoutWritePermissionOnlyByForce) {
  files_.DeleteFile(File("readonly"), true);
  files_.DeleteFile(File("f"));
  EXPECT_EQ(Listing(), "d");
}

TEST_F(FileSystem, CreatesOverAFileOnlyWhenTold) {
  EXPECT_EQ(FailureOf([this] { std::ignore = files_.CreateTextFile(File("f"), false); }), 58);
  EXPECT_EQ(ReadBytes(File("f")), "text");
  { std::ignore = files_.CreateTextFile(File("f"), true); }
  EXPECT_EQ(ReadBytes(File("f")), "");
  EXPECT_EQ(files_.FileSize(File("f")), 0);
}

TEST_F(FileSystem, ReadsBinaryAtAPosition) {
  WriteBytes(File("b"), std::string("ab\0\xFFz", 5));
  EXPECT_EQ(ReadBinary(File("b"), 1, 3), std::string("b\0\xFF", 3));
  EXPECT_EQ(ReadBinary(File("b"), 4, 9), "z");
  EXPECT_EQ(ReadBinary(File("b"), 50, 9), "");
}

TEST(FileSystemNames, DrawsTemporaryNamesOfFiveDigits) {
  const struct {
    double random;
    std::string name;
  } cases[] = {{0.0, "rad00000.tmp"},
               {15944.0 / 1048576.0, "rad03E48.tmp"},
               {1048575.5 / 1048576.0, "radFFFFF.tmp"}};
  for (const auto& row : cases) {
    OverrideClock({.tickCount = {}, .dayAndHour = {}, .random = [&row] { return row.random; }});
    EXPECT_EQ(Readable(FileSystemObject().GetTempName()), row.name);
  }
  OverrideClock({});
}

}  // namespace
}  // namespace lexmill::platform
