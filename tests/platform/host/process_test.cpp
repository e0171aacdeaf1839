// SPDX-License-Identifier: MIT
#include "platform/host/process.h"

#include <sys/wait.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/files.h"

namespace lexmill::platform {
namespace {

class ProcessTest : public testing::Test {
 protected:
  ~ProcessTest() override { SetWaiting(nullptr); }

  /// Starts `line` in the folder with a pipe as its output.
  /// @return all that it prints
  std::string Run(std::u16string line) {
    auto pipe = CreatePipe();
    EXPECT_TRUE(pipe);
    EXPECT_TRUE(CreateProcess({.commandLine = std::move(line),
                               .currentDirectory = folder_.File(""),
                               .standardOutput = &pipe->writeEnd,
                               .standardError = nullptr}));
    pipe->writeEnd.Close();
    return ReadAll(pipe->readEnd);
  }

  static std::string ReadAll(HostFile& readEnd) {
    std::string text;
    std::array<char, 16> buffer = {};
    while (const auto count = ReadPipe(readEnd, buffer)) {
      text.append(buffer.data(), *count);
    }
    return text;
  }

  void WriteProgram(const char* name, const char* text) const {
    test::WriteBytes(folder_.File(name), text);
    std::filesystem::permissions(folder_.Path() / name, std::filesystem::perms::owner_all);
  }

  test::TemporaryFolder folder_;
};

TEST_F(ProcessTest, PassesEachArgumentAsItIs) {
  EXPECT_EQ(Run(u"printf <%s> $HOME \"a  b;\" \"\" * 译文"), "<$HOME><a  b;><><*><译文>");
}

TEST_F(ProcessTest, GivesEmptyStreamsForNullHandles) {
  EXPECT_EQ(Run(u"sh -c \"cat; echo lost >&2 && echo kept\""), "kept\n");
}

TEST_F(ProcessTest, LooksForAProgramInTheChildsDirectoryFirst) {
  WriteProgram("printf", "#!/bin/sh\necho mine\n");
  WriteProgram("only here", "#!/bin/sh\necho here\n");
  EXPECT_EQ(Run(u"printf x"), "mine\n");
  EXPECT_EQ(Run(u"\"only here\""), "here\n");
  test::WriteBytes(folder_.File("echo"), "not executable");
  EXPECT_EQ(Run(u"echo path"), "path\n");
}

TEST_F(ProcessTest, ReportsThatAProgramCannotBeStarted) {
  std::filesystem::create_directory(folder_.Path() / "folder");
  struct Case {
    const char16_t* line;
    const char16_t* directory;
  };
  constexpr Case kCases[] = {{u"lexmill-no-such-program", u""},
                             {u"", u""},
                             {u"\"\"", u""},
                             {u"./folder", u""},
                             {u"echo", u"no"}};
  for (const auto& row : kCases) {
    EXPECT_FALSE(CreateProcess(
        {.commandLine = row.line, .currentDirectory = folder_.File("") + row.directory}));
  }
}

TEST_F(ProcessTest, ReadsNoMoreThanTheBufferHolds) {
  auto pipe = CreatePipe();
  ASSERT_TRUE(pipe && pipe->writeEnd.Write("abcde"));
  std::array<char, 3> buffer = {};
  EXPECT_EQ(ReadPipe(pipe->readEnd, buffer), 3U);
  EXPECT_EQ(ReadPipe(pipe->readEnd, buffer), 2U);
  HostFile second = DuplicateHandle(pipe->writeEnd);
  pipe->writeEnd.Close();
  ASSERT_TRUE(second.Write("f"));
  EXPECT_EQ(ReadPipe(pipe->readEnd, buffer), 1U);
  second.Close();
  EXPECT_EQ(ReadPipe(pipe->readEnd, buffer), std::nullopt);
  pipe->readEnd.Close();
  EXPECT_EQ(ReadPipe(pipe->readEnd, buffer), std::nullopt);
}

TEST_F(ProcessTest, CallsTheWaitingStepWhileNothingArrives) {
  auto pipe = CreatePipe();
  ASSERT_TRUE(pipe);
  int steps = 0;
  SetWaiting([&pipe, &steps] {
    if (++steps == 3) {
      pipe->writeEnd.Close();
    }
  });
  EXPECT_EQ(ReadAll(pipe->readEnd), "");
  EXPECT_EQ(steps, 3);
}

TEST_F(ProcessTest, EndsChildrenWithAllThatTheyStarted) {
  struct Case {
    const char* name;
    const char16_t* line;
  };
  constexpr Case kCases[] = {
      {"a child", u"sleep 1000"},
      {"a child that ignores requests", u"sh -c \"trap '' TERM INT HUP; sleep 1000; sleep 1000\""},
      {"a child and its own child", u"sh -c \"sleep 1000 & sleep 1000\""},
      {"what a child left behind", u"sh -c \"sleep 1000 &\""},
  };
  for (const auto& row : kCases) {
    SCOPED_TRACE(row.name);
    SetWaiting(EndChildProcesses);
    EXPECT_EQ(Run(row.line), "");
  }
}

TEST_F(ProcessTest, LeavesNoEndedChildUnreaped) {
  EXPECT_EQ(Run(u"echo done"), "done\n");
  // Any next call reaps, however late the child was: waits here until it can be.
  siginfo_t ended = {};
  waitid(P_ALL, 0, &ended, WEXITED | WNOWAIT);
  EndChildProcesses();
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
}

}  // namespace
}  // namespace lexmill::platform
