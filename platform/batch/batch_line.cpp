// SPDX-License-Identifier: MIT
#include "platform/batch/batch_line.h"

#include <algorithm>

#include "platform/host/command_line.h"
#include "platform/text/text.h"

namespace lexmill::platform::batch {
namespace {

constexpr std::u16string_view kPathEnds = u" \t<>";
constexpr std::u16string_view kEchoWithPoint = u"echo.";

std::u16string_view WithoutLeadingBlanks(std::u16string_view text) {
  return text.substr(std::min(text.find_first_not_of(kBlanks), text.size()));
}

/// Moves the redirections of `line` to `result`.
/// @return what is left of the line
std::u16string TakeRedirections(std::u16string_view line, BatchLine& result) {
  std::u16string command;
  bool isQuoted = false;
  while (!line.empty()) {
    const char16_t unit = line.front();
    line.remove_prefix(1);
    if (!isQuoted && (unit == u'<' || unit == u'>')) {
      auto path = TakeWord(line, kPathEnds).value_or(std::u16string());
      result.isComplete = result.isComplete && !path.empty();
      result.redirections.push_back({.isInput = unit == u'<', .path = std::move(path)});
    } else {
      isQuoted = isQuoted != (unit == u'"');
      command += unit;
    }
  }
  return command;
}

std::size_t NameLength(std::u16string_view command) {
  if (LowerCase(command.substr(0, kEchoWithPoint.size())) == kEchoWithPoint) {
    return kEchoWithPoint.size() - 1;
  }
  std::u16string_view rest = command;
  return TakeWord(rest) ? command.size() - rest.size() : 0;
}

}  // namespace

BatchLine ReadBatchLine(std::u16string_view line) {
  BatchLine result;
  line = WithoutLeadingBlanks(line);
  while (line.starts_with(u'@')) {
    result.isSilent = true;
    line = WithoutLeadingBlanks(line.substr(1));
  }
  const std::u16string command = TakeRedirections(line, result);
  const std::u16string_view shown = WithoutLeadingBlanks(command);
  result.name = shown.substr(0, NameLength(shown));
  result.argument = shown.substr(result.name.size());
  return result;
}

}  // namespace lexmill::platform::batch
