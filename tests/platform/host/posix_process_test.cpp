// SPDX-License-Identifier: MIT
// What only children that are programs of this system can do.
#include <sys/wait.h>

#include <array>
#include <cerrno>
#include <string>

#include <gtest/gtest.h>

#include "platform/host/process.h"

namespace lexmill::platform {
namespace {

/// @return all that `line` prints
std::string OutputOf(const char16_t* line) {
  auto pipe = CreatePipe();
  EXPECT_TRUE(pipe && CreateProcess({.commandLine = line,
                                     .currentDirectory = {},
                                     .standardOutput = &pipe->writeEnd}));
  pipe->writeEnd.Close();
  std::string text;
  std::array<char, 16> buffer = {};
  while (const auto count = ReadPipe(pipe->readEnd, buffer)) {
    text.append(buffer.data(), *count);
  }
  return text;
}

TEST(PosixProcess, EndsChildrenThatRefuseAndWhatTheyLeftBehind) {
  SetWaiting(EndChildProcesses);
  EXPECT_EQ(OutputOf(u"sh -c \"trap '' TERM INT HUP; sleep 1000; sleep 1000\""), "");
  EXPECT_EQ(OutputOf(u"sh -c \"sleep 1000 &\""), "");
  // Who has left the family isn't waited for.
  EXPECT_EQ(OutputOf(u"sh -c \"setsid sh -c 'sleep 10; echo late' &\""), "");
  SetWaiting(nullptr);
}

TEST(PosixProcess, LeavesNoEndedChildUnreaped) {
  EXPECT_EQ(OutputOf(u"echo done"), "done\n");
  // Any next call reaps, however late the child was: waits here until it can be.
  siginfo_t ended = {};
  waitid(P_ALL, 0, &ended, WEXITED | WNOWAIT);
  EndChildProcesses();
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
}

}  // namespace
}  // namespace lexmill::platform
