// SPDX-License-Identifier: MIT
#include "platform/host/command_line.h"

#include "platform/host/application.h"
#include "platform/host/host_file.h"
#include "platform/host/host_path.h"
#include "platform/text/text.h"

namespace lexmill::platform {
namespace {

/// A path with blanks may come without quotes, so it is looked for before the line is split.
bool IsBatchFile(std::u16string_view path, std::u16string_view currentDirectory) {
  if (!LowerCase(path).ends_with(u".bat")) {
    return false;
  }
  const auto status = StatusOf(
      HostPath(currentDirectory.empty() ? std::u16string(path) : PathFrom(currentDirectory, path)));
  return status && status->kind == FileKind::Regular;
}

/// The words of a line that goes to the batch interpreter by `/c`; none for any other line.
std::optional<std::vector<std::u16string>> InterpreterLine(std::u16string_view line) {
  const auto program = TakeWord(line);
  const auto argument = TakeWord(line);
  if (!argument || *argument != kLineSwitch || FileName(*program) != kBatchProgram) {
    return std::nullopt;
  }
  return std::vector<std::u16string>{*program, *argument, std::u16string(TrimLeft(line))};
}

}  // namespace

std::optional<std::u16string> TakeWord(std::u16string_view& rest, std::u16string_view ends) {
  const std::size_t start = rest.find_first_not_of(kBlanks);
  if (start == std::u16string_view::npos) {
    return std::nullopt;
  }
  std::u16string word;
  bool isQuoted = false;
  std::size_t at = start;
  for (; at < rest.size() && (isQuoted || !Contains(ends, rest[at])); ++at) {
    if (rest[at] == u'"') {
      isQuoted = !isQuoted;
    } else {
      word += rest[at];
    }
  }
  rest.remove_prefix(at);
  return word;
}

std::vector<std::u16string> SplitCommandLine(std::u16string_view line) {
  std::vector<std::u16string> words;
  while (auto word = TakeWord(line)) {
    words.push_back(*std::move(word));
  }
  return words;
}

std::vector<std::u16string> CommandLine(std::u16string_view line,
                                        std::u16string_view currentDirectory) {
  const std::u16string batch = WithSeparator(ApplicationFolder()) + std::u16string(kBatchProgram);
  if (IsBatchFile(line, currentDirectory)) {
    return {batch, std::u16string(line)};
  }
  if (auto interpreted = InterpreterLine(line)) {
    return *std::move(interpreted);
  }
  auto words = SplitCommandLine(line);
  if (words.size() == 1 && IsBatchFile(words[0], currentDirectory)) {
    words.insert(words.begin(), batch);
  }
  return words;
}

}  // namespace lexmill::platform
