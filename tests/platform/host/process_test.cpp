// SPDX-License-Identifier: MIT
#include "platform/host/process.h"

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/host/application.h"
#include "platform/host/program_start.h"
#include "platform/text/text.h"
#include "tests/support/files.h"

namespace lexmill::platform {
namespace {

/// Starts `child`, the program of the tests, which lies beside them.
class ProcessTest : public testing::Test {
 protected:
  ~ProcessTest() override {
    SetWaiting(nullptr);
    SetOutputWatch(nullptr);
  }

  /// Starts `line` in the folder with a pipe as its output.
  /// @return all that it prints
  std::string Run(std::u16string line) {
    auto pipe = CreatePipe();
    EXPECT_TRUE(pipe && Start(std::move(line), pipe->writeEnd));
    pipe->writeEnd.Close();
    return ReadAll(pipe->readEnd);
  }

  bool Start(std::u16string line, const HostFile& output) {
    return CreateProcess({.commandLine = std::move(line),
                          .currentDirectory = folder_.File(""),
                          .standardOutput = &output,
                          .standardError = nullptr});
  }

  static std::string ReadAll(HostFile& readEnd) {
    std::string text;
    std::array<char, 16> buffer = {};
    while (const auto count = ReadPipe(readEnd, buffer)) {
      text.append(buffer.data(), *count);
    }
    return text;
  }

  test::TemporaryFolder folder_;
};

TEST_F(ProcessTest, PassesEachArgumentAsItIs) {
  EXPECT_EQ(Run(u"child words $HOME \"a  b;\" \"\" * 译文"), "<$HOME><a  b;><><*><译文>");
}

// Above all what the quoting of a system could get wrong.
TEST_F(ProcessTest, PassesAnyWordToAProgramThatIsWaitedFor) {
  ProgramStart start = {.words = {u"child", u"words", u"a\\", u"a b\\", u"a b\\\\", u"\"", u"\\\"",
                                  u"a\\\\\"b c\\\"", u"", u"%TEMP%", u"^&|", u"'", u"\t", u"😀"},
                        .directory = {}};
  std::string expected;
  for (std::size_t i = 2; i < start.words.size(); ++i) {
    expected += "<" + ToUtf8(start.words[i]) + ">";
  }
  HostFile output = *HostFile::Open(HostPath(folder_.File("o")), OpenMode::ReadWriteCreate);
  start.standardOutput = &output;
  EXPECT_EQ(*RunProgram(start), 0);
  EXPECT_EQ(test::ReadBytes(folder_.File("o")), expected);
}

TEST_F(ProcessTest, KnowsAnEndFromAKill) {
  const auto codeOf = [](std::vector<std::u16string> words) {
    return *RunProgram({.words = std::move(words), .directory = {}});
  };
  EXPECT_EQ(codeOf({u"child", u"end", u"0"}), 0);
  EXPECT_EQ(codeOf({u"child", u"end", u"74"}), 74);
  EXPECT_GE(codeOf({u"child", u"vanish"}), kExitByForce);
}

TEST_F(ProcessTest, GivesChildrenTheirStreamsAndNothingElse) {
  EXPECT_EQ(Run(u"child streams"), "kept");
  auto pipe = CreatePipe();
  auto other = CreatePipe();
  ASSERT_TRUE(pipe && other && Start(u"child sleep", pipe->writeEnd));
  other->writeEnd.Close();
  std::array<char, 16> buffer = {};
  EXPECT_EQ(ReadPipe(pipe->readEnd, buffer), 6U);
  int steps = 0;
  SetWaiting([&steps] {
    ++steps;
    EndChildProcesses();
  });
  EXPECT_EQ(ReadAll(other->readEnd), "");
  EXPECT_EQ(steps, 0);
  EndChildProcesses();
}

TEST_F(ProcessTest, LooksForAProgramInTheChildsDirectoryFirst) {
  const std::filesystem::path ours = HostPath(ApplicationFolder()).Native();
  EXPECT_EQ(Run(u"child folder"), ToUtf8(ApplicationFolder()));
  const std::string program = test::ProgramFile("child");
  std::filesystem::copy_file(ours / program, folder_.Path() / program);
  EXPECT_EQ(Run(u"child folder"), ToUtf8(ParentFolder(folder_.File("child"))));
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
                             {u"child", u"no"}};
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
  SetOutputWatch([](std::string_view) { EndChildProcesses(); });
  EXPECT_EQ(Run(u"child sleep"), "asleep");
  EXPECT_EQ(Run(u"child family"), "asleep");
}

}  // namespace
}  // namespace lexmill::platform
