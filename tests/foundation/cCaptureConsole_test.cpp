// SPDX-License-Identifier: MIT
#include "foundation/cCaptureConsole.h"

#include <stdlib.h>

#include <filesystem>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "platform/failure.h"
#include "platform/host/application.h"
#include "platform/host/host_path.h"
#include "platform/host/host_system.h"
#include "platform/host/process.h"
#include "tests/support/files.h"
#include "tests/support/readable_text.h"

namespace lexmill {
namespace {

class CaptureConsole : public testing::Test {
 protected:
  CaptureConsole()
      : listener_(console_.OutputAvailable.Connect(
            [this](const std::u16string& text) { pieces_.push_back(test::Readable(text)); })) {
    platform::SetApplicationFolder(platform::HostPath::FromNative(folder_.Path()).Text());
  }
  ~CaptureConsole() override { platform::SetWaiting(nullptr); }

  std::string Run(std::u16string_view line, bool isStdOut = true, bool isStdErr = true) {
    pieces_.clear();
    return test::Readable(console_.ShellConsole(line, folder_.File(""), false, isStdOut, isStdErr));
  }

  /// A program in the folder that prints its arguments, each in brackets.
  void WriteBracketProgram(const char* name) const {
    test::WriteBytes(folder_.File(name), "#!/bin/sh\nprintf '[%s]' \"$@\"\n");
    std::filesystem::permissions(folder_.Path() / name, std::filesystem::perms::owner_all);
  }

  test::TemporaryFolder folder_;
  cCaptureConsole console_;
  std::vector<std::string> pieces_;
  platform::Connection listener_;
};

TEST_F(CaptureConsole, RaisesNoEventWithoutOutput) {
  for (const char16_t* line : {u"true", u"false", u"lexmill-no-such-program", u""}) {
    EXPECT_EQ(Run(line), "");
    EXPECT_TRUE(pieces_.empty()) << test::Readable(line);
  }
}

TEST_F(CaptureConsole, CapturesTheStreamsAskedFor) {
  constexpr std::u16string_view kBoth = u"sh -c \"echo out; echo error >&2; echo again\"";
  EXPECT_EQ(Run(kBoth), "out\nerror\nagain\n");
  EXPECT_EQ(Run(kBoth, true, false), "out\nagain\n");
  EXPECT_EQ(Run(kBoth, false, true), "error\n");
}

TEST_F(CaptureConsole, FailsWhenNeitherStreamIsCaptured) {
  try {
    std::ignore = Run(u"touch started", false, false);
    FAIL() << "no failure";
  } catch (const platform::Failure& failure) {
    EXPECT_EQ(failure.Number(), 5);
  }
  EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(CaptureConsole, HandsOnLongOutputInPiecesOf1024Bytes) {
  test::WriteBytes(folder_.File("long"), std::string(2500, 'x'));
  EXPECT_EQ(Run(u"cat long"), std::string(2500, 'x'));
  EXPECT_GE(pieces_.size(), 3U);
  std::string joined;
  for (const auto& piece : pieces_) {
    EXPECT_LE(piece.size(), 1024U);
    joined += piece;
  }
  EXPECT_EQ(joined, std::string(2500, 'x'));
}

TEST_F(CaptureConsole, DecodesEachReadByItself) {
  // Bytes 1024 and 1025 are one character of the code page, A3 BA; the write fills one pipe.
  test::WriteBytes(folder_.File("split"), std::string(1023, 'x') + "\xA3\xBA");
  test::WriteBytes(folder_.File("whole"), "\xD2\xEB\xCE\xC4");
  EXPECT_EQ(Run(u"cat whole"), "译文");
  EXPECT_EQ(Run(u"cat split"), std::string(1023, 'x') + "<DCA3><DCBA>");
}

TEST_F(CaptureConsole, GoesOnUntilTheLastHolderOfThePipeEnds) {
  // The shell keeps the gate's only write end until it is gone itself; its child then goes on.
  EXPECT_EQ(Run(u"sh -c \"mkfifo gate; (cat gate; echo late) & exec 3>gate; echo early\""),
            "early\nlate\n");
}

TEST_F(CaptureConsole, ComesToItsEndWhenTheChildProcessesAreEnded) {
  platform::SetWaiting(platform::EndChildProcesses);
  EXPECT_EQ(Run(u"sh -c \"echo first; sleep 1000\""), "first\n");
}

TEST_F(CaptureConsole, PutsInterpreterAndStubBeforeTheLine) {
  WriteBracketProgram("interpreter");
  WriteBracketProgram("RedirStub");
  const std::string interpreter = (folder_.Path() / "interpreter").string();
  struct Case {
    const char* comSpec;
    std::uint32_t version;
    bool isInternal;
    std::string output;
  };
  const Case cases[] = {
      {interpreter.c_str(), 5, true, "[/c][dir][x]"},
      {interpreter.c_str(), 0x80000004, true, "[" + interpreter + "][/c][dir][x]"},
      {interpreter.c_str(), 0xC0000004, false, "[dir][x]"},
      {nullptr, 0x80000004, true, "[/c][dir][x]"},
      {nullptr, 0x7FFFFFFF, true, ""},
  };
  const std::uint32_t version = platform::GetVersion();
  for (const auto& row : cases) {
    row.comSpec == nullptr ? unsetenv("COMSPEC") : setenv("COMSPEC", row.comSpec, 1);
    platform::SetVersion(row.version);
    EXPECT_EQ(test::Readable(console_.ShellConsole(u"dir x", folder_.File(""), row.isInternal)),
              row.output);
  }
  platform::SetVersion(version);
  unsetenv("COMSPEC");
}

}  // namespace
}  // namespace lexmill
