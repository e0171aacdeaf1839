// SPDX-License-Identifier: MIT
// Scripts of the database shell: read alike however they arrive, and no value gets out of its
// quotes.
#include <tuple>
#include <utility>
#include <vector>

#include "fuzz/fuzz_input.h"
#include "glossary/working_scripts.h"
#include "platform/ansi_text.h"
#include "platform/sqlite/script_reader.h"
#include "platform/sqlite/shell.h"

namespace lexmill::fuzz {
namespace {

using platform::sqlite::ScriptBatch;
using platform::sqlite::ScriptReader;

using Batches = std::vector<std::pair<ScriptBatch::Kind, std::string>>;

/// Gives a text in pieces of at most `step` bytes.
platform::sqlite::ReadFunction InPieces(std::string_view text, std::size_t step) {
  return [text, step](std::span<char> buffer) mutable -> std::optional<std::size_t> {
    const std::size_t count = text.copy(buffer.data(), std::min(buffer.size(), step));
    text.remove_prefix(count);
    return count;
  };
}

Batches Read(std::string_view script, std::size_t step) {
  const auto read = InPieces(script, step);
  ScriptReader reader(read);
  Batches batches;
  while (const auto batch = reader.Next()) {
    batches.emplace_back(batch->kind, batch->text);
  }
  return batches;
}

std::string RunShell(std::vector<std::string> words, std::string_view script) {
  constexpr std::size_t kStep = 4096;
  std::string output;
  std::ignore = platform::sqlite::RunShell(
      words,
      {InPieces(script, kStep), [&](std::string_view bytes) { return output += bytes, true; },
       [&](std::string_view bytes) { return output += bytes, true; }});
  return output;
}

/// One line, as a value of a dictionary is.
std::u16string Value(std::string_view bytes) {
  std::u16string text = platform::FromAnsi(bytes);
  std::erase_if(text, [](char16_t unit) { return unit == u'\r' || unit == u'\n' || unit == 0; });
  return text;
}

void CheckQuoting(const std::u16string& first, const std::u16string& second) {
  static const ScratchFolder folder;
  const std::string database = folder.HostPath("q.db");
  std::filesystem::remove(database);
  std::u16string row;
  SetRowOfR(row, first, second);
  const std::string script =
      "BEGIN;\r\nCREATE TABLE R(r1 TEXT,r2 TEXT);\r\n" + platform::ToAnsi(row) + "\r\nCOMMIT;\r\n";
  Require(RunShell({"sqlite", database}, script).empty(), "a row of any text goes in");
  const std::string expected = platform::ToAnsi(first + u"\t" + second) + "\r\n";
  Require(
      RunShell({"sqlite", "-separator", "\t", database, "SELECT r1,r2 FROM R;"}, "") == expected,
      "it comes out alone and as it was");
}

}  // namespace
}  // namespace lexmill::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  lexmill::fuzz::Input input(data, size);
  const std::size_t step = 1 + input.TakeByte();
  const std::string_view script = input.Rest();
  lexmill::fuzz::Require(
      lexmill::fuzz::Read(script, step) == lexmill::fuzz::Read(script, script.size() + 1),
      "a script is read alike however it arrives");
  const auto first = lexmill::fuzz::Value(input.TakePiece());
  lexmill::fuzz::CheckQuoting(first, lexmill::fuzz::Value(input.TakePiece()));
  return 0;
}
