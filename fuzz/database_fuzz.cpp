// SPDX-License-Identifier: MIT
// Database files of any content: rows or a message, never more.
#include <array>
#include <tuple>
#include <vector>

#include "fuzz/fuzz_input.h"
#include "platform/sqlite/shell/shell.h"

namespace lexmill::fuzz {
namespace {

constexpr std::array kScripts = {
    "SELECT * FROM sqlite_master;\n",
    "SELECT r1,r2 FROM R;\nSELECT r2 FROM R WHERE r1='Open';\n",
    "BEGIN;\nCREATE TABLE S(so TEXT,sm TEXT);\nINSERT INTO S VALUES ('a','b');\n"
    "CREATE INDEX ism ON S(sm);\nCOMMIT;\nSELECT DISTINCT S.so,R.r2 FROM R INNER JOIN S ON "
    "R.r1=S.sm;\n",
    "BEGIN;\nINSERT INTO R VALUES ('x','y');\nUPDATE R SET r2='z' WHERE r1='Open';\nROLLBACK;\n",
    "CREATE INDEX i2 ON R(r2);\nSELECT r1 FROM R WHERE r2='z';\n",
    "UPDATE O SET o2='z' WHERE o1='Open';\nSELECT o0,o2 FROM O;\n",
};

void Run(const std::string& database, std::string_view script) {
  const auto input = [&script](std::span<char> buffer) -> std::optional<std::size_t> {
    const std::size_t count = script.copy(buffer.data(), buffer.size());
    script.remove_prefix(count);
    return count;
  };
  const auto output = [](std::string_view) { return true; };
  const std::vector<std::string> words = {"sqlite", database};
  std::ignore = platform::sqlite::RunShell(words, {input, output, output});
}

}  // namespace
}  // namespace lexmill::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const lexmill::fuzz::ScratchFolder folder;
  lexmill::fuzz::Input input(data, size);
  const unsigned script = input.TakeByte();
  folder.Write("d.db", input.Rest());
  std::filesystem::remove(folder.HostPath("d.db-journal"));
  lexmill::fuzz::Run(folder.HostPath("d.db"),
                     lexmill::fuzz::kScripts.at(script % lexmill::fuzz::kScripts.size()));
  return 0;
}
