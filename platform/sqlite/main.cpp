// SPDX-License-Identifier: MIT
// platform/sqlite: the program `sqlite`.
#include <unistd.h>

#include <string>
#include <vector>

#include "platform/files/platform_settings.h"
#include "platform/host/application.h"
#include "platform/host/host_file.h"
#include "platform/host/host_system.h"
#include "platform/sqlite/shell/shell.h"

int main(int count, char** words) {
  using lexmill::platform::HostFile;
  lexmill::platform::SurviveFileSizeLimit();
  lexmill::platform::ReadPlatformSettings();
  HostFile input(STDIN_FILENO);
  HostFile output(STDOUT_FILENO);
  HostFile error(STDERR_FILENO);
  const lexmill::platform::sqlite::ShellStreams streams = {
      [&](std::span<char> buffer) { return input.Read(buffer); },
      [&](std::string_view bytes) { return output.Write(bytes); },
      [&](std::string_view bytes) { return error.Write(bytes); }};
  const std::vector<std::string> arguments(words, words + count);
  return lexmill::platform::sqlite::RunShell(arguments, streams);
}
