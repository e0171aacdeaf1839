// SPDX-License-Identifier: MIT
#include "tests/sqlite/shell_world.h"

#include <algorithm>
#include <ostream>

#include "platform/sqlite/shell/shell.h"

namespace lexmill::platform::sqlite {
namespace {

std::string Replaced(std::string_view text, std::string_view from, std::string_view to) {
  std::string result;
  for (std::size_t at; (at = text.find(from)) != std::string_view::npos;) {
    result.append(text.substr(0, at)).append(to);
    text.remove_prefix(at + from.size());
  }
  return result.append(text);
}

}  // namespace

void PrintTo(const ShellOutcome& outcome, std::ostream* stream) {
  *stream << "code " << outcome.code << "\noutput:\n"
          << outcome.output << "error:\n"
          << outcome.error;
}

ShellOutcome ShellWorld::Run(std::vector<std::string> words, std::string_view script) const {
  std::replace(words.begin(), words.end(), std::string(), DatabasePath());
  words.insert(words.begin(), "sqlite");
  ShellOutcome result;
  const ShellStreams streams = {[&script](std::span<char> buffer) {
                                  const std::size_t count =
                                      script.copy(buffer.data(), buffer.size());
                                  script.remove_prefix(count);
                                  return std::optional(count);
                                },
                                [&result](std::string_view bytes) {
                                  result.output += bytes;
                                  return true;
                                },
                                [&result](std::string_view bytes) {
                                  result.error += bytes;
                                  return true;
                                }};
  result.code = RunShell(words, streams);
  result.error = Replaced(result.error, folder_.Path().string(), "DIR");
  return result;
}

std::string ShellWorld::Script(std::string_view script) const {
  return Replaced(Run({""}, script).output, "\r\n", "\n");
}

std::string ShellWorld::Select(std::string_view statement) const {
  return Replaced(Run({"", std::string(statement)}).output, "\r\n", "\n");
}

}  // namespace lexmill::platform::sqlite
