// SPDX-License-Identifier: MIT
#include <unistd.h>

#include <string>
#include <vector>

#include "platform/batch/interpreter.h"
#include "platform/files/platform_settings.h"
#include "platform/host/application.h"
#include "platform/host/host_file.h"
#include "platform/host/host_path.h"
#include "platform/host/host_system.h"

int main(int count, char** values) {
  namespace platform = lexmill::platform;
  platform::SurviveFileSizeLimit();
  platform::ReadPlatformSettings();

  std::vector<std::u16string> arguments;
  for (int i = 1; i < count; ++i) {
    arguments.push_back(platform::FromHostPath(values[i]));
  }
  platform::HostFile input(STDIN_FILENO);
  platform::HostFile output(STDOUT_FILENO);
  platform::HostFile error(STDERR_FILENO);
  platform::batch::Interpreter interpreter(input, output, error);
  return platform::batch::RunBatch(arguments, interpreter, error);
}
