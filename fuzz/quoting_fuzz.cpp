// SPDX-License-Identifier: MIT
// Rows of the working scripts: no value gets out of its quotes, and each comes out as it went in.
#include <array>
#include <tuple>
#include <vector>

#include "fuzz/fuzz_input.h"
#include "glossary/working_scripts.h"
#include "platform/sqlite/shell/shell.h"
#include "platform/text/ansi_text.h"

namespace lexmill::fuzz {
namespace {

/// What the shell prints, on either stream, while it runs `script` on a new database.
std::string RunShell(std::string_view script) {
  static const ScratchFolder folder;
  const std::string database = folder.HostPath("q.db");
  std::filesystem::remove(database);
  std::string printed;
  const auto input = [&script](std::span<char> buffer) -> std::optional<std::size_t> {
    const std::size_t count = script.copy(buffer.data(), buffer.size());
    script.remove_prefix(count);
    return count;
  };
  const auto output = [&printed](std::string_view bytes) { return printed += bytes, true; };
  const std::vector<std::string> words = {"sqlite", "-separator", "\t", database};
  std::ignore = platform::sqlite::RunShell(words, {input, output, output});
  return printed;
}

/// Requires that of `table`, filled by `rows`, nothing but the values of one row comes out.
void Check(const TableScript& table, std::u16string_view rows, std::u16string_view columns,
           std::u16string_view values) {
  const std::u16string script = std::u16string(u"BEGIN TRANSACTION;\r\n")
                                    .append(table.createTable)
                                    .append(u"\r\n")
                                    .append(rows)
                                    .append(u"\r\n")
                                    .append(table.createIndex)
                                    .append(u"\r\nCOMMIT;\r\nSELECT ")
                                    .append(columns)
                                    .append(u";\r\n");
  Require(RunShell(platform::ToAnsi(script)) == platform::ToAnsi(values) + "\r\n",
          "a row of any text goes in, and comes out alone and as it was");
}

/// One line, as a value of a dictionary is.
std::u16string TakeValue(Input& input) {
  std::u16string text = platform::FromAnsi(input.TakePiece());
  std::erase_if(text, [](char16_t unit) { return unit == u'\r' || unit == u'\n' || unit == 0; });
  return text;
}

void CheckReference(Input& input) {
  const auto r1 = TakeValue(input), r2 = TakeValue(input);
  std::u16string row;
  SetRowOfR(row, r1, r2);
  Check(kReferenceScript, row, u"r1,r2 FROM R", r1 + u"\t" + r2);
}

void CheckUntranslated(Input& input) {
  std::array<std::u16string, 5> values;
  for (auto& value : values) {
    value = TakeValue(input);
  }
  const auto& [so, sh, sm, sk, st] = values;
  std::u16string row;
  SetRowOfS(row, {so, sh, sm, sk, st});
  Check(kUntranslatedScript, row, u"so,sh,sm,sk,st FROM S",
        so + u"\t" + sh + u"\t" + sm + u"\t" + sk + u"\t" + st);
}

/// A row that is filled and then changed by its key.
void CheckEntries(Input& input) {
  const auto head = TakeValue(input), key = TakeValue(input), value = TakeValue(input);
  std::u16string row, update;
  SetRowOfO(row, head, key, u"");
  SetUpdateOfO(update, value, key);
  Check(kEntriesScript, row + u"\r\n" + update, u"o0,o1,o2 FROM O",
        head + u"\t" + key + u"\t" + value);
}

}  // namespace
}  // namespace lexmill::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::array kChecks = {lexmill::fuzz::CheckReference, lexmill::fuzz::CheckUntranslated,
                                  lexmill::fuzz::CheckEntries};
  lexmill::fuzz::Input input(data, size);
  kChecks.at(input.TakeByte() % kChecks.size())(input);
  return 0;
}
