// SPDX-License-Identifier: MIT
#include "platform/host/host_file.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "platform/host/replacement_file.h"
#include "platform/text/text.h"
#include "tests/support/files.h"
#include "tests/support/hard_surroundings.h"

namespace lexmill::platform {
namespace {

using test::OrdinaryUser;
using test::ReadBytes;
using test::TemporaryFolder;
using test::WriteBytes;

/// Writes `bytes` through a replacement of `target` and commits it.
void Replace(const std::u16string& target, std::string_view bytes) {
  auto file = ReplacementFile::Create(target);
  ASSERT_TRUE(file) << ToUtf8(target) << ": " << static_cast<int>(file.Error());
  EXPECT_TRUE(file->File().Write(bytes));
  EXPECT_TRUE(file->Commit(true));
}

TEST(HostFile, OpensNoOtherFileForANameWithNul) {
  const TemporaryFolder folder;
  WriteBytes(folder.File("a"), "kept");
  const HostPath name(folder.File("a") + std::u16string(u"\0b", 2));
  EXPECT_FALSE(HostFile::Open(name, OpenMode::ReadWriteReplace));
  EXPECT_FALSE(RemoveFile(name));
  EXPECT_EQ(ReadBytes(folder.File("a")), "kept");
}

TEST(HostFile, DoesNotWaitForTheOtherEndOfANamedPipe) {
  const TemporaryFolder folder;
  const HostPath pipe(folder.File("pipe"));
  test::MakePipe(pipe.Text());
  EXPECT_TRUE(HostFile::Open(pipe, OpenMode::Overwrite).FailedBy(HostError::Device));
  auto reader = HostFile::Open(pipe, OpenMode::Read);
  char byte = 0;
  EXPECT_EQ(*reader->Read({&byte, 1}), 0U);
}

TEST(HostFile, OpensAsItsModeSays) {
  constexpr bool kRefused = false;
  const struct {
    OpenMode mode;
    bool opensMissing;
    std::string content;  ///< of an older file afterwards, after a write of "-"
  } cases[] = {{OpenMode::Read, false, "old"},           {OpenMode::ReadWrite, false, "-ld"},
               {OpenMode::ReadWriteCreate, true, "-ld"}, {OpenMode::ReadWriteReplace, true, "-"},
               {OpenMode::Overwrite, false, "-"},        {OpenMode::CreateNew, true, "old"}};
  for (const auto& row : cases) {
    SCOPED_TRACE(static_cast<int>(row.mode));
    const TemporaryFolder folder;
    WriteBytes(folder.File("f"), "old");
    const auto missing = HostFile::Open(HostPath(folder.File("new")), row.mode);
    EXPECT_EQ(static_cast<bool>(missing), row.opensMissing);
    EXPECT_EQ(missing.FailedBy(HostError::NotFound), !row.opensMissing);
    auto older = HostFile::Open(HostPath(folder.File("f")), row.mode);
    EXPECT_EQ(older.FailedBy(HostError::Exists), row.mode == OpenMode::CreateNew);
    const bool isWritten = older ? static_cast<bool>(older->Write("-")) : kRefused;
    EXPECT_EQ(isWritten, row.content.starts_with('-'));
    EXPECT_EQ(ReadBytes(folder.File("f")), row.content);
  }
}

TEST(HostFile, ReadsAndWritesAtAPosition) {
  const TemporaryFolder folder;
  HostFile file = *HostFile::Open(HostPath(folder.File("f")), OpenMode::ReadWriteCreate);
  EXPECT_TRUE(file.WriteAt("0123456789", 0));
  EXPECT_TRUE(file.WriteAt("xy", 4));
  EXPECT_TRUE(file.Truncate(8));
  std::string buffer(6, '-');
  EXPECT_EQ(*file.ReadAt(buffer, 3), 5U);
  EXPECT_EQ(buffer, "3xy67-");
}

TEST(ReplacementFile, ShowsNothingBeforeCommitAndLeavesNothingBesideIt) {
  const TemporaryFolder folder;
  WriteBytes(folder.File("f"), "old");
  {
    auto file = ReplacementFile::Create(folder.File("f"));
    ASSERT_TRUE(file->File().Write("new"));
    EXPECT_EQ(ReadBytes(folder.File("f")), "old");
  }
  EXPECT_EQ(ReadBytes(folder.File("f")), "old");
  EXPECT_EQ(folder.Listing(), "f");
  Replace(folder.File("f"), "new");
  EXPECT_EQ(ReadBytes(folder.File("f")), "new");
  EXPECT_EQ(folder.Listing(), "f");
}

TEST(ReplacementFile, TwoOfOneTargetDoNotMix) {
  const TemporaryFolder folder;
  auto first = ReplacementFile::Create(folder.File("f"));
  auto second = ReplacementFile::Create(folder.File("f"));
  ASSERT_TRUE(first && second);
  EXPECT_TRUE(first->File().Write("first") && second->File().Write("2"));
  EXPECT_TRUE(first->Commit(false));
  EXPECT_EQ(ReadBytes(folder.File("f")), "first");
  EXPECT_TRUE(second->Commit(false));
  EXPECT_EQ(ReadBytes(folder.File("f")), "2");
}

TEST(ReplacementFile, RemovesWhatGoneProcessesLeftAndNothingElse) {
  const OrdinaryUser user;
  const TemporaryFolder folder;
  const std::string gone = test::GoneProcess();
  // Process 1 lives and is the superuser's.
  const std::string kept = ".f.lexmill- .f.lexmill-1 .f.lexmill-" + gone + "x .g.lexmill-" + gone;
  for (const std::string& name :
       {".f.lexmill-" + gone, ".f.lexmill-" + gone + "-2", std::string(".f.lexmill-1"),
        ".g.lexmill-" + gone, std::string(".f.lexmill-"), ".f.lexmill-" + gone + "x"}) {
    WriteBytes(folder.File(name), "x");
  }
  Replace(folder.File("f"), "new");
  EXPECT_EQ(folder.Listing(), kept + " f");
}

TEST(ReplacementFile, FollowsLinksAndKeepsPermissions) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.Path() / "d");
  std::filesystem::create_symlink("d/real", folder.Path() / "link");
  std::filesystem::create_symlink("link", folder.Path() / "second");
  Replace(folder.File("second"), "made");
  EXPECT_EQ(ReadBytes(folder.File("d/real")), "made");
  std::filesystem::permissions(folder.Path() / "d/real", std::filesystem::perms(0640));
  Replace(folder.File("second"), "replaced");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Path() / "link"));
  EXPECT_EQ(ReadBytes(folder.File("d/real")), "replaced");
  EXPECT_EQ(std::filesystem::status(folder.Path() / "d/real").permissions(),
            std::filesystem::perms(0640));
}

TEST(ReplacementFile, TakesNamesOfFullLengthInAnyScript) {
  const TemporaryFolder folder;
  std::string chinese;
  while (chinese.size() < 255) {
    chinese += "\xE8\xAF\x8D";
  }
  for (const std::string& name : {std::string(255, 'n'), chinese}) {
    Replace(folder.File(name), "old");
    Replace(folder.File(name), "new");
    EXPECT_EQ(ReadBytes(folder.File(name)), "new");
  }
}

TEST(ReplacementFile, WritesInPlaceWhereTheFolderRefuses) {
  const OrdinaryUser user;
  const TemporaryFolder folder;
  WriteBytes(folder.File("f"), "old and longer");
  std::filesystem::permissions(folder.Path(), std::filesystem::perms(0500));
  Replace(folder.File("f"), "new");
  EXPECT_TRUE(ReplacementFile::Create(folder.File("missing")).FailedBy(HostError::Denied));
  std::filesystem::permissions(folder.Path(), std::filesystem::perms(0700));
  EXPECT_EQ(ReadBytes(folder.File("f")), "new");
}

TEST(ReplacementFile, WritesADeviceInPlace) {
  const OrdinaryUser user;  // whose mistakes leave the device alone
  auto device = ReplacementFile::Create(u"/dev/full");
  ASSERT_TRUE(device);
  EXPECT_TRUE(device->File().Write("x").FailedBy(HostError::Full));
}

TEST(ReplacementFile, RefusesTargetsThatCannotBeWritten) {
  const OrdinaryUser user;
  const TemporaryFolder folder;
  WriteBytes(folder.File("f"), "old");
  WriteBytes(folder.File("readonly"), "old");
  std::filesystem::permissions(folder.Path() / "readonly", std::filesystem::perms(0444));
  std::filesystem::create_directory(folder.Path() / "d");
  std::filesystem::create_symlink("loop", folder.Path() / "loop");
  test::MakePipe(folder.File("pipe"));
  const struct {
    std::string name;
    HostError error;
  } cases[] = {{"d", HostError::IsFolder},      {"d/", HostError::IsFolder},
               {"new/", HostError::IsFolder},   {"readonly", HostError::Denied},
               {"none/f", HostError::NotFound}, {"f/f", HostError::NoFolder},
               {"loop", HostError::NoFolder},   {std::string(256, 'n'), HostError::BadName},
               {"pipe", HostError::Device},     {std::string("f\0g", 3), HostError::NotFound}};
  const std::string before = folder.Listing();
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    EXPECT_TRUE(ReplacementFile::Create(folder.File(row.name)).FailedBy(row.error));
  }
  EXPECT_FALSE(ReplacementFile::Create(u""));
  EXPECT_EQ(folder.Listing(), before);
  EXPECT_EQ(ReadBytes(folder.File("f")), "old");
}

}  // namespace
}  // namespace lexmill::platform
