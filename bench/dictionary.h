// SPDX-License-Identifier: MIT
// bench: dictionaries of any size, and measurements of the run and its parts.
// Made-up dictionaries that look like those of translators. Each entry follows from its number
// alone, so the same sizes give the same files on every machine.
#pragma once

#include <cstdint>
#include <string>

namespace lexmill::bench {

/// How many entries a pair of dictionaries has, how many of them meet, and how long their strings
/// are.
struct DictionarySizes {
  std::uint64_t reference = 0;
  std::uint64_t untranslated = 0;
  /// Share of the untranslated strings whose words the reference knows, in per cent.
  std::uint64_t knownPercent = 50;
  /// Strings of whole sentences: in a text as reference 58 bytes a line on average, half of them
  /// Chinese, some characters in four bytes of the code page.
  bool hasLongStrings = false;
};

struct DictionaryEntry {
  std::u16string source;
  std::u16string target;
};

/// Entry `i` of the reference dictionary. About 3 % are still untranslated; short strings come up
/// many times.
[[nodiscard]] DictionaryEntry ReferenceEntry(std::uint64_t i, const DictionarySizes& sizes);

/// Entry `i` of the untranslated dictionary, both sides alike. Decorated anew, so that only bare
/// words can meet the reference.
[[nodiscard]] DictionaryEntry UntranslatedEntry(std::uint64_t i, const DictionarySizes& sizes);

}  // namespace lexmill::bench
