// SPDX-License-Identifier: MIT
// Scripts of the database shell: read alike however they arrive.
#include <utility>
#include <vector>

#include "fuzz/fuzz_input.h"
#include "platform/sqlite/shell/script_reader.h"

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

}  // namespace
}  // namespace lexmill::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  lexmill::fuzz::Input input(data, size);
  const std::size_t step = 1 + input.TakeByte();
  const std::string_view script = input.Rest();
  lexmill::fuzz::Require(
      lexmill::fuzz::Read(script, step) == lexmill::fuzz::Read(script, script.size() + 1),
      "a script is read alike however it arrives");
  return 0;
}
