// SPDX-License-Identifier: MIT
// run/shared: what every room may read of a run.
// What a dictionary is: its format and its encoding.
#pragma once

#include <cstdint>

#include "platform/text/text_encoding.h"
#include "run/shared/file_facts.h"

namespace lexmill {

namespace modMain {

enum class DictionaryFormat : std::int32_t {
  Unknown = 0,
  PassoloGlossary = 1,
  DianjingText = 2,
};

}  // namespace modMain

/// What a run has found out about one of its dictionaries before its first stage.
struct DictionaryKind {
  platform::TextEncoding encoding = platform::TextEncoding::Ansi;
  bool isPlainAscii = false;  ///< of ASCII alone, as far as the run has looked for that
  modMain::DictionaryFormat format = modMain::DictionaryFormat::Unknown;
  bool isCatalog = false;  ///< it is one, and a glossary stands in for it
  FileFacts facts{};

  bool operator==(const DictionaryKind&) const = default;
};

}  // namespace lexmill
