// SPDX-License-Identifier: MIT
// Runs a target on every file of the folders and on every file that are named.
#include <iostream>
#include <iterator>

#include "fuzz/fuzz_input.h"

namespace {

void Replay(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

}  // namespace

int main(int count, char** values) {
  int replayed = 0;
  for (int i = 1; i < count; ++i) {
    if (!std::filesystem::is_directory(values[i])) {
      Replay(values[i]);
      ++replayed;
      continue;
    }
    for (const auto& entry : std::filesystem::directory_iterator(values[i])) {
      Replay(entry.path());
      ++replayed;
    }
  }
  std::cout << replayed << " inputs replayed\n";
  return replayed > 0 ? 0 : 1;
}
