// SPDX-License-Identifier: MIT
#include "platform/sqlite/shell/arguments.h"

#include <string_view>
#include <utility>

namespace lexmill::platform::sqlite {
namespace {

constexpr std::size_t kLongestSeparator = 19;

constexpr std::string_view kUsage =
    " [OPTIONS] DATABASE [STATEMENT]\n"
    "Runs STATEMENT, or a script from standard input, on DATABASE, which is made if it is "
    "missing.\n"
    "OPTIONS:\n"
    "   -help            show this text\n"
    "   -line            print one value a line, as NAME = VALUE\n"
    "   -list            print one row a line (default)\n"
    "   -separator TEXT  what separates two values of a row, at first |\n";

ParsedArguments Complaint(const std::string& program, std::string_view text) {
  return {std::nullopt,
          program + ": " + std::string(text) + "\nUse -help for a list of options.\n"};
}

ParsedArguments Usage(const std::string& program) {
  return {std::nullopt, "Usage: " + program + std::string(kUsage)};
}

}  // namespace

ParsedArguments ParseArguments(std::span<const std::string> words) {
  const std::string program = words.empty() ? "sqlite" : words[0];
  ShellArguments result;
  std::size_t next = 1;
  for (; next < words.size() && words[next].starts_with('-'); ++next) {
    const std::string& option = words[next];
    if (option == "-line") {
      result.form = OutputForm::Line;
    } else if (option == "-list") {
      result.form = OutputForm::List;
    } else if (option == "-help") {
      return Usage(program);
    } else if (option != "-separator") {
      return Complaint(program, "unknown option: " + option);
    } else if (++next == words.size()) {
      return Complaint(program, "missing text for option: -separator");
    } else {
      result.separator = words[next].substr(0, kLongestSeparator);
    }
  }
  if (next >= words.size()) {
    return Usage(program);
  }
  result.database = words[next];
  if (next + 1 < words.size()) {
    result.statement = words[next + 1];
  }
  return {std::move(result), {}};
}

}  // namespace lexmill::platform::sqlite
