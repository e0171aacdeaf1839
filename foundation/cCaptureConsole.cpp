// SPDX-License-Identifier: MIT
#include "foundation/cCaptureConsole.h"

#include <array>
#include <cstdint>

#include "platform/failure.h"
#include "platform/host/application.h"
#include "platform/host/host_path.h"
#include "platform/host/host_system.h"
#include "platform/host/process.h"
#include "platform/text/ansi_text.h"

namespace lexmill {
namespace {

constexpr std::size_t kReadSize = 1024;  // bytes
constexpr std::uint32_t kOldestFamily = 0x80000000;

/// Starts the child with the pipe as its streams. Afterwards only the child, and what it starts,
/// hold the write end.
bool StartChild(std::u16string_view sCommandLine, std::u16string_view sCurrentDriectory,
                bool IsStdOut, bool IsStdErr, platform::HostFile writeEnd) {
  const platform::HostFile second =
      IsStdOut && IsStdErr ? platform::DuplicateHandle(writeEnd) : platform::HostFile();
  const platform::HostFile* errorStream = IsStdOut ? &second : &writeEnd;
  return platform::CreateProcess({
      .commandLine = std::u16string(sCommandLine),
      .currentDirectory = std::u16string(sCurrentDriectory),
      .standardInput = nullptr,
      .standardOutput = IsStdOut ? &writeEnd : nullptr,
      .standardError = IsStdErr ? errorStream : nullptr,
  });
}

}  // namespace

std::u16string cCaptureConsole::ShellConsole(std::u16string_view sCommandLine,
                                             std::u16string_view sCurrentDriectory,
                                             bool IsInternalCommand, bool IsStdOut, bool IsStdErr,
                                             bool IsOEMConvert) {
  std::u16string commandLine(sCommandLine);
  if (IsInternalCommand) {
    commandLine = platform::EnvironmentVariable(u"COMSPEC") + u" /c " + commandLine;
  }
  if (IsWindows9x()) {
    commandLine = GetAppFolder() + u"RedirStub " + commandLine;
  }
  return CaptureProcessOutput(commandLine, IsStdOut, IsStdErr, IsOEMConvert, sCurrentDriectory);
}

std::u16string cCaptureConsole::CaptureProcessOutput(std::u16string_view sCommandLine,
                                                     bool IsStdOut, bool IsStdErr,
                                                     bool IsOEMConvert,
                                                     std::u16string_view sCurrentDriectory) {
  if (!IsStdOut && !IsStdErr) {
    throw platform::Failure(platform::FailureNumber::InvalidCall, platform::FailureOrigin::Runtime);
  }
  std::array<char, kReadSize> buffer;
  auto pipe = platform::CreatePipe();
  if (!pipe ||
      !StartChild(sCommandLine, sCurrentDriectory, IsStdOut, IsStdErr, std::move(pipe->writeEnd))) {
    return {};
  }
  std::u16string output;
  while (const auto count = platform::ReadPipe(pipe->readEnd, buffer)) {
    const std::string_view bytes(buffer.data(), *count);
    const std::u16string chunk =
        platform::FromAnsi(IsOEMConvert ? platform::OemToAnsi(bytes) : bytes);
    output += chunk;
    OutputAvailable.Raise(chunk);
  }
  return output;
}

bool cCaptureConsole::IsWindows9x() {
  return (platform::GetVersion() & kOldestFamily) != 0;
}

std::u16string cCaptureConsole::GetAppFolder() {
  return platform::WithSeparator(platform::ApplicationFolder());
}

}  // namespace lexmill
