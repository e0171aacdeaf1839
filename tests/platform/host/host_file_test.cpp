// SPDX-License-Identifier: MIT
#include "platform/host/host_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include <gtest/gtest.h>

#include "platform/host/host_path.h"
#include "tests/support/files.h"

namespace lexmill::platform {
namespace {

using test::OrdinaryUser;
using test::ReadBytes;
using test::TemporaryFolder;
using test::WriteBytes;

/// Number of a process that has been and is gone.
pid_t GoneProcess() {
  const pid_t child = fork();
  if (child == 0) {
    _exit(0);
  }
  waitpid(child, nullptr, 0);
  return child;
}

std::string HostPath(const TemporaryFolder& folder, std::string_view name) {
  return (folder.Path() / name).string();
}

/// Writes `bytes` through a replacement of `target` and commits it.
void Replace(const std::string& target, std::string_view bytes) {
  auto file = ReplacementFile::Create(target);
  ASSERT_TRUE(file.has_value()) << target << ": errno " << errno;
  EXPECT_TRUE(file->File().Write(bytes));
  EXPECT_TRUE(file->Commit(true));
}

TEST(HostFile, OpensNoOtherFileForANameWithNul) {
  const TemporaryFolder folder;
  WriteBytes(folder.File("a"), "kept");
  const std::string name = HostPath(folder, "a") + std::string("\0b", 2);
  EXPECT_FALSE(HostFile::Open(name, O_WRONLY | O_CREAT | O_TRUNC).IsOpen());
  EXPECT_FALSE(RemoveFile(name));
  EXPECT_EQ(ReadBytes(folder.File("a")), "kept");
}

TEST(HostFile, DoesNotWaitForTheOtherEndOfANamedPipe) {
  const TemporaryFolder folder;
  const std::string pipe = HostPath(folder, "pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_FALSE(HostFile::Open(pipe, O_WRONLY).IsOpen());
  EXPECT_EQ(errno, ENXIO);
  HostFile reader = HostFile::Open(pipe, O_RDONLY);
  char byte = 0;
  EXPECT_EQ(reader.Read({&byte, 1}), 0U);
}

TEST(HostFile, ReadsAndWritesAtAPosition) {
  const TemporaryFolder folder;
  HostFile file = HostFile::Open(HostPath(folder, "f"), O_RDWR | O_CREAT);
  EXPECT_TRUE(file.WriteAt("0123456789", 0));
  EXPECT_TRUE(file.WriteAt("xy", 4));
  EXPECT_TRUE(file.Truncate(8));
  std::string buffer(6, '-');
  EXPECT_EQ(file.ReadAt(buffer, 3), 5U);
  EXPECT_EQ(buffer, "3xy67-");
}

TEST(ReplacementFile, ShowsNothingBeforeCommitAndLeavesNothingBesideIt) {
  const TemporaryFolder folder;
  WriteBytes(folder.File("f"), "old");
  {
    auto file = ReplacementFile::Create(HostPath(folder, "f"));
    ASSERT_TRUE(file->File().Write("new"));
    EXPECT_EQ(ReadBytes(folder.File("f")), "old");
  }
  EXPECT_EQ(ReadBytes(folder.File("f")), "old");
  EXPECT_EQ(folder.Listing(), "f");
  Replace(HostPath(folder, "f"), "new");
  EXPECT_EQ(ReadBytes(folder.File("f")), "new");
  EXPECT_EQ(folder.Listing(), "f");
}

TEST(ReplacementFile, TwoOfOneTargetDoNotMix) {
  const TemporaryFolder folder;
  auto first = ReplacementFile::Create(HostPath(folder, "f"));
  auto second = ReplacementFile::Create(HostPath(folder, "f"));
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
  const std::string gone = std::to_string(GoneProcess());
  // Process 1 lives and is the superuser's.
  const std::string kept = ".f.lexmill- .f.lexmill-1 .f.lexmill-" + gone + "x .g.lexmill-" + gone;
  for (const std::string& name :
       {".f.lexmill-" + gone, ".f.lexmill-" + gone + "-2", std::string(".f.lexmill-1"),
        ".g.lexmill-" + gone, std::string(".f.lexmill-"), ".f.lexmill-" + gone + "x"}) {
    WriteBytes(folder.File(name), "x");
  }
  Replace(HostPath(folder, "f"), "new");
  EXPECT_EQ(folder.Listing(), kept + " f");
}

TEST(ReplacementFile, FollowsLinksAndKeepsPermissions) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.Path() / "d");
  std::filesystem::create_symlink("d/real", folder.Path() / "link");
  std::filesystem::create_symlink("link", folder.Path() / "second");
  Replace(HostPath(folder, "second"), "made");
  EXPECT_EQ(ReadBytes(folder.File("d/real")), "made");
  ASSERT_EQ(chmod(HostPath(folder, "d/real").c_str(), 0640), 0);
  Replace(HostPath(folder, "second"), "replaced");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Path() / "link"));
  EXPECT_EQ(ReadBytes(folder.File("d/real")), "replaced");
  EXPECT_EQ(StatusOf(HostPath(folder, "d/real"))->permissions, 0640U);
}

TEST(ReplacementFile, TakesNamesOfFullLengthInAnyScript) {
  const TemporaryFolder folder;
  std::string chinese;
  while (chinese.size() < 255) {
    chinese += "\xE8\xAF\x8D";
  }
  for (const std::string& name : {std::string(255, 'n'), chinese}) {
    Replace(HostPath(folder, name), "old");
    Replace(HostPath(folder, name), "new");
    EXPECT_EQ(ReadBytes(folder.File(name)), "new");
  }
}

TEST(ReplacementFile, WritesInPlaceWhereTheFolderRefuses) {
  const OrdinaryUser user;
  const TemporaryFolder folder;
  WriteBytes(folder.File("f"), "old and longer");
  ASSERT_EQ(chmod(folder.Path().c_str(), 0500), 0);
  Replace(HostPath(folder, "f"), "new");
  EXPECT_FALSE(ReplacementFile::Create(HostPath(folder, "missing")));
  EXPECT_EQ(errno, EACCES);
  ASSERT_EQ(chmod(folder.Path().c_str(), 0700), 0);
  EXPECT_EQ(ReadBytes(folder.File("f")), "new");
}

TEST(ReplacementFile, WritesADeviceInPlace) {
  const OrdinaryUser user;  // whose mistakes leave the device alone
  auto device = ReplacementFile::Create("/dev/full");
  ASSERT_TRUE(device);
  EXPECT_FALSE(device->File().Write("x"));
  EXPECT_EQ(errno, ENOSPC);
}

TEST(ReplacementFile, RefusesTargetsThatCannotBeWritten) {
  const OrdinaryUser user;
  const TemporaryFolder folder;
  WriteBytes(folder.File("f"), "old");
  WriteBytes(folder.File("readonly"), "old");
  ASSERT_EQ(chmod(HostPath(folder, "readonly").c_str(), 0444), 0);
  std::filesystem::create_directory(folder.Path() / "d");
  std::filesystem::create_symlink("loop", folder.Path() / "loop");
  ASSERT_EQ(mkfifo(HostPath(folder, "pipe").c_str(), 0600), 0);
  const struct {
    std::string name;
    int error;
  } cases[] = {{"d", EISDIR},      {"d/", EISDIR},
               {"new/", EISDIR},   {"readonly", EACCES},
               {"none/f", ENOENT}, {"f/f", ENOTDIR},
               {"loop", ELOOP},    {std::string(256, 'n'), ENAMETOOLONG},
               {"pipe", ENXIO},    {std::string("f\0g", 3), ENOENT}};
  const std::string before = folder.Listing();
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    errno = 0;
    EXPECT_FALSE(ReplacementFile::Create(HostPath(folder, row.name)));
    EXPECT_EQ(errno, row.error);
  }
  EXPECT_FALSE(ReplacementFile::Create(""));
  EXPECT_EQ(folder.Listing(), before);
  EXPECT_EQ(ReadBytes(folder.File("f")), "old");
}

}  // namespace
}  // namespace lexmill::platform
