// SPDX-License-Identifier: MIT
// bench: what the database shell does in a run: loading a script, building an index, the join, the
// listing.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "bench/parts_data.h"
#include "platform/sqlite/shell/shell.h"
#include "platform/text/text.h"
#include "platform/text/text_encoding.h"

namespace lexmill::bench {
namespace {

constexpr auto kEntries = static_cast<std::int64_t>(kPartEntries);
constexpr std::string_view kIndex = "CREATE INDEX irm ON R(r1);\n";
const std::string kJoin =
    "SELECT DISTINCT S.so,S.sh,R.r2,S.sk,S.st FROM R INNER JOIN S ON R.r1=S.sm;";

std::string Database() {
  return platform::ToUtf8(PartFolder()) + "shell.db";
}

/// Runs the shell over the database. @return bytes of its output
std::size_t Run(std::vector<std::string> words, std::string_view script) {
  std::size_t size = 0;
  const platform::sqlite::ShellStreams streams = {[&script](std::span<char> buffer) {
                                                    const std::size_t count =
                                                        script.copy(buffer.data(), buffer.size());
                                                    script.remove_prefix(count);
                                                    return std::optional(count);
                                                  },
                                                  [&size](std::string_view bytes) {
                                                    size += bytes.size();
                                                    return true;
                                                  },
                                                  [](std::string_view) { return true; }};
  words.insert(words.begin(), "sqlite");
  benchmark::DoNotOptimize(platform::sqlite::RunShell(words, streams));
  return size;
}

std::string Quoted(std::u16string_view text) {
  std::string bytes;
  static_cast<void>(platform::EncodeText(platform::TextEncoding::Ansi,
                                         platform::ReplaceAll(text, u"'", u"''"), bytes));
  return '\'' + bytes + '\'';
}

std::string ReferenceScript() {
  std::string script = "BEGIN TRANSACTION;\nCREATE TABLE R(r1 TEXT,r2 TEXT);\n";
  for (const auto& entry : PartReferences()) {
    script += "INSERT INTO R VALUES (" + Quoted(entry.source) + "," + Quoted(entry.target) + ");\n";
  }
  return script;
}

/// Rows for the join: every second key is in R.
std::string UntranslatedScript() {
  std::string script =
      "BEGIN TRANSACTION;\nCREATE TABLE S(so TEXT,sh TEXT,sm TEXT,sk TEXT,st TEXT);\n";
  for (std::uint64_t i = 0; i < kPartEntries; ++i) {
    const auto& entries = i % 2 == 0 ? PartReferences() : PartUntranslated();
    const std::string text = Quoted(entries[i].source);
    script += "INSERT INTO S VALUES (" + text + ",''," + text + ",'(&A)','');\n";
  }
  return script + "CREATE INDEX ism ON S(sm);\nCOMMIT;\n";
}

std::string EntriesScript() {
  std::string script = "BEGIN TRANSACTION;\nCREATE TABLE O(o0 TEXT,o1 TEXT,o2 TEXT);\n";
  for (std::uint64_t i = 0; i < kPartEntries; ++i) {
    const auto& entry = PartReferences()[i];
    const std::string source = Quoted(entry.source);
    script += "INSERT INTO O VALUES ('" + std::to_string(i) + ":'," + source + "," +
              Quoted(entry.target) + ");\n";
  }
  return script + "COMMIT;\n";
}

void Begin(std::string_view script) {
  std::filesystem::remove(Database());
  Run({Database()}, script);
}

void Loading(benchmark::State& state, std::string_view end) {
  const std::string script = ReferenceScript().append(end).append("COMMIT;\n");
  for ([[maybe_unused]] auto round : state) {
    Begin(script);
  }
  state.SetItemsProcessed(state.iterations() * kEntries);
}

void IndexBuilding(benchmark::State& state) {
  const std::string script = ReferenceScript() + "COMMIT;\n";
  for ([[maybe_unused]] auto round : state) {
    state.PauseTiming();
    Begin(script);
    state.ResumeTiming();
    Run({Database()}, kIndex);
  }
  state.SetItemsProcessed(state.iterations() * kEntries);
}

void Join(benchmark::State& state) {
  Begin(ReferenceScript().append(kIndex).append("COMMIT;\n") + UntranslatedScript());
  for ([[maybe_unused]] auto round : state) {
    benchmark::DoNotOptimize(Run({"-separator", "\t", Database(), kJoin}, {}));
  }
  state.SetItemsProcessed(state.iterations() * kEntries);
}

void Listing(benchmark::State& state) {
  Begin(EntriesScript());
  std::size_t size = 0;
  for ([[maybe_unused]] auto round : state) {
    size += Run({"-line", Database(), "SELECT o0,o2 FROM O;"}, {});
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(size));
}

BENCHMARK_CAPTURE(Loading, WithoutIndex, "");
BENCHMARK_CAPTURE(Loading, WithIndex, kIndex);
BENCHMARK(IndexBuilding);
BENCHMARK(Join);
BENCHMARK(Listing);

}  // namespace
}  // namespace lexmill::bench
