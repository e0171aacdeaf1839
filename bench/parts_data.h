// SPDX-License-Identifier: MIT
// bench: dictionaries of any size, and measurements of the run and its parts.
// What the measured parts work on: made once, shared by all.
#pragma once

#include <string>
#include <vector>

#include "bench/dictionary.h"

namespace lexmill::bench {

/// Entries that every part is measured over.
inline constexpr std::uint64_t kPartEntries = 20'000;

[[nodiscard]] const std::vector<DictionaryEntry>& PartReferences();
[[nodiscard]] const std::vector<DictionaryEntry>& PartUntranslated();

/// A folder for the files of all parts, with a separator at its end; removed when the program ends.
[[nodiscard]] const std::u16string& PartFolder();

}  // namespace lexmill::bench
