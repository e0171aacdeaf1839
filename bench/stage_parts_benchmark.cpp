// SPDX-License-Identifier: MIT
// bench: what the stages consist of: scanner, rule chains, script writing.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "bench/dictionary_files.h"
#include "bench/parts_data.h"
#include "glossary/record_scanner.h"
#include "glossary/text_rules.h"
#include "glossary/working_scripts.h"
#include "platform/expression/regular_expression.h"
#include "platform/files/file_system.h"

namespace lexmill::bench {
namespace {

constexpr auto kEntries = static_cast<std::int64_t>(kPartEntries);

void Scanner(benchmark::State& state) {
  WriteDictionaries(PartFolder(), {.reference = kPartEntries, .untranslated = 1});
  RecordScanner scanner;
  std::size_t length = 0;
  const auto connection = scanner.Connect([] {}, [&] { length += scanner.Field(2).size(); }, [] {});
  for ([[maybe_unused]] auto round : state) {
    scanner.FieldSeparator(u"\t");
    scanner.ScanFile(PartFolder() + u"ref.glo");
    scanner.ScanAction(RecordScanner::kRun);
  }
  benchmark::DoNotOptimize(length);
  state.SetItemsProcessed(state.iterations() * kEntries);
}

template <class Rules, class Apply>
void RuleChain(benchmark::State& state, const std::vector<DictionaryEntry>& entries, Apply apply) {
  const OptionSet options = FullPreset();
  platform::RegExp expression;
  Rules rules(options, expression);
  for ([[maybe_unused]] auto round : state) {
    for (const auto& entry : entries) {
      benchmark::DoNotOptimize(apply(rules, entry));
    }
  }
  state.SetItemsProcessed(state.iterations() * kEntries);
}

void ReferenceRuleChain(benchmark::State& state) {
  RuleChain<ReferenceRules>(state, PartReferences(), [](auto& rules, const auto& entry) {
    return rules.PurifyReference(entry.source, entry.target);
  });
}

void UntranslatedRuleChain(benchmark::State& state) {
  RuleChain<UntranslatedRules>(state, PartUntranslated(), [](auto& rules, const auto& entry) {
    return rules.DecomposeUntranslated(entry.source, entry.target);
  });
}

void ScriptWriting(benchmark::State& state) {
  std::u16string statement;
  for ([[maybe_unused]] auto round : state) {
    auto script = platform::FileSystemObject().CreateTextFile(PartFolder() + u"r.sql", true);
    for (const auto& entry : PartReferences()) {
      SetRowOfR(statement, entry.source, entry.target);
      script.WriteLine(statement);
    }
    script.Close();
  }
  state.SetItemsProcessed(state.iterations() * kEntries);
}

BENCHMARK(Scanner);
BENCHMARK(ReferenceRuleChain);
BENCHMARK(UntranslatedRuleChain);
BENCHMARK(ScriptWriting);

}  // namespace
}  // namespace lexmill::bench
