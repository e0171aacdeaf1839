// SPDX-License-Identifier: MIT
// platform/batch: the program `batch`.
#include <span>
#include <string>
#include <vector>

#include "platform/batch/interpreter.h"
#include "platform/files/platform_settings.h"
#include "platform/host/host_file.h"
#include "platform/host/host_system.h"
#include "platform/host/standard_streams.h"

int main(int count, char** words) {
  namespace platform = lexmill::platform;
  using platform::StandardStream;
  platform::SurviveFileSizeLimit();
  platform::ReadPlatformSettings();

  const std::vector<std::u16string> arguments = platform::ProgramWords(count, words);
  platform::HostFile input = platform::TakeStandardStream(StandardStream::Input);
  platform::HostFile output = platform::TakeStandardStream(StandardStream::Output);
  platform::HostFile error = platform::TakeStandardStream(StandardStream::Error);
  platform::batch::Interpreter interpreter(input, output, error);
  return platform::batch::RunBatch(std::span(arguments).subspan(1), interpreter, error);
}
