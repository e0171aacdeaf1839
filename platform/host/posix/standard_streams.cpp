// SPDX-License-Identifier: MIT
#include "platform/host/standard_streams.h"

#include <unistd.h>

#include "platform/host/posix/descriptor.h"
#include "platform/text/text.h"

namespace lexmill::platform {
namespace {

int DescriptorOf(StandardStream stream) {
  switch (stream) {
    case StandardStream::Input:
      return STDIN_FILENO;
    case StandardStream::Output:
      return STDOUT_FILENO;
    case StandardStream::Error:
      break;
  }
  return STDERR_FILENO;
}

}  // namespace

std::vector<std::u16string> ProgramWords(int count, const char* const* words) {
  std::vector<std::u16string> result;
  for (int i = 0; i < count; ++i) {
    result.push_back(FromUtf8(words[i]));
  }
  if (result.empty()) {
    result.emplace_back();
  }
  return result;
}

HostFile TakeStandardStream(StandardStream stream) {
  return HostFile(system::HandleOf(DescriptorOf(stream)));
}

bool IsTerminal(StandardStream stream) {
  return isatty(DescriptorOf(stream)) != 0;
}

void PrepareOutput() {}  // bytes are bytes here, and terminals take UTF-8

}  // namespace lexmill::platform
