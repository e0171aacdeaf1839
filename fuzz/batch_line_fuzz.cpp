// SPDX-License-Identifier: MIT
// Lines of batch scripts: any line is read, and a path in quotes comes out as it went in.
#include "fuzz/fuzz_input.h"
#include "platform/batch/batch_line.h"
#include "platform/host/command_line.h"
#include "platform/text/ansi_text.h"

namespace lexmill::fuzz {
namespace {

void CheckAnyLine(std::u16string_view line) {
  const auto read = platform::batch::ReadBatchLine(line);
  for (const auto& redirection : read.redirections) {
    Require(redirection.path.size() <= line.size(), "a path is a part of its line");
  }
  for (const auto& word : platform::SplitCommandLine(line)) {
    Require(word.size() <= line.size(), "a word is a part of its line");
  }
}

void CheckPath(const std::u16string& path) {
  const auto line = platform::batch::ReadBatchLine(u"copy \"" + path + u"\" work.db>nul");
  Require(line.name == u"copy" && line.isComplete, "the command is read");
  Require(line.redirections.size() == 1 && line.redirections[0].path == u"nul",
          "a path redirects nothing");
  const auto words = platform::SplitCommandLine(line.argument);
  Require(words.size() == 2 && words[0] == path && words[1] == u"work.db",
          "a path is one word, letter for letter");
}

}  // namespace
}  // namespace lexmill::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::u16string text = lexmill::platform::FromAnsi(lexmill::fuzz::Input(data, size).Rest());
  lexmill::fuzz::CheckAnyLine(text);
  std::erase(text, u'"');
  lexmill::fuzz::CheckPath(text);
  return 0;
}
