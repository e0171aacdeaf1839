// SPDX-License-Identifier: MIT
// platform/sqlite: the program `sqlite`.
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/platform_settings.h"
#include "platform/host/application.h"
#include "platform/host/host_file.h"
#include "platform/host/host_system.h"
#include "platform/host/standard_streams.h"
#include "platform/host/termination.h"
#include "platform/sqlite/shell/shell.h"
#include "platform/text/text.h"

int main(int count, char** words) {
  namespace platform = lexmill::platform;
  using platform::StandardStream;
  platform::SurviveFileSizeLimit();
  platform::ShowOrderlyEnd();
  platform::ReadPlatformSettings();
  platform::HostFile input = platform::TakeStandardStream(StandardStream::Input);
  platform::HostFile output = platform::TakeStandardStream(StandardStream::Output);
  platform::HostFile error = platform::TakeStandardStream(StandardStream::Error);
  const platform::sqlite::ShellStreams streams = {
      [&](std::span<char> buffer) {
        const auto got = input.Read(buffer);
        return got ? std::optional(*got) : std::nullopt;
      },
      [&](std::string_view bytes) { return static_cast<bool>(output.Write(bytes)); },
      [&](std::string_view bytes) { return static_cast<bool>(error.Write(bytes)); }};
  std::vector<std::string> arguments;
  for (const auto& word : platform::ProgramWords(count, words)) {
    arguments.push_back(platform::ToUtf8(word));
  }
  return platform::sqlite::RunShell(arguments, streams);
}
