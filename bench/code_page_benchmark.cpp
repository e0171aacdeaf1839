// SPDX-License-Identifier: MIT
// bench: decoding and encoding, string by string as the stages do.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "bench/parts_data.h"
#include "platform/text/text_encoding.h"

namespace lexmill::bench {
namespace {

using platform::TextEncoding;

void Decoding(benchmark::State& state, TextEncoding encoding) {
  std::vector<std::string> targets;
  std::int64_t size = 0;
  for (const auto& entry : PartReferences()) {
    static_cast<void>(platform::EncodeText(encoding, entry.target, targets.emplace_back()));
    size += std::ssize(targets.back());
  }
  std::u16string text;
  for ([[maybe_unused]] auto round : state) {
    for (const auto& bytes : targets) {
      text.clear();
      platform::DecodeText(encoding, bytes, text);
      benchmark::DoNotOptimize(text.data());
    }
  }
  state.SetBytesProcessed(state.iterations() * size);
}

void Encoding(benchmark::State& state, TextEncoding encoding) {
  std::string bytes;
  std::int64_t size = 0;
  for ([[maybe_unused]] auto round : state) {
    for (const auto& entry : PartReferences()) {
      bytes.clear();
      benchmark::DoNotOptimize(platform::EncodeText(encoding, entry.target, bytes));
      size += std::ssize(bytes);
    }
  }
  state.SetBytesProcessed(size);
}

BENCHMARK_CAPTURE(Decoding, CodePage936, TextEncoding::Ansi);
BENCHMARK_CAPTURE(Decoding, Utf8, TextEncoding::Utf8);
BENCHMARK_CAPTURE(Encoding, CodePage936, TextEncoding::Ansi);
BENCHMARK_CAPTURE(Encoding, Utf8, TextEncoding::Utf8);

}  // namespace
}  // namespace lexmill::bench
