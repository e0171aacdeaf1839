// SPDX-License-Identifier: MIT
// run: turns one press of the start command into a finished run.
// What a reference says of one string.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "run/near_string.h"
#include "run/reference_entries.h"

namespace lexmill {

/// An entry of a reference, kept. Its line is 0 in a purified database.
struct FoundEntry {
  std::int64_t line = 0;
  std::u16string source;
  std::u16string target;

  bool operator==(const FoundEntry&) const = default;
};

/// A bare translation with the entries that give it, at least one.
struct FoundTranslation {
  std::u16string bare;
  std::vector<FoundEntry> entries;
};

/// An entry of a string that is nearly the one looked for.
struct NearEntry {
  FoundEntry entry;
  Differences differences;
};

struct SearchResult {
  std::vector<FoundTranslation> translations;  ///< in the order of their first entries
  std::vector<NearEntry> nearest;              ///< those with the fewest differences first
  std::int64_t furtherNear = 0;                ///< how many more there are
  /// Lines that have the string but are of no use.
  std::map<EntryUse, std::vector<std::int64_t>> unused;
};

/// Looks for a string in a reference by the comparison of a run.
/// @param mainText  what the rules have made of the string: the key that is looked for
/// @throws platform::Failure as ForEachReferenceEntry
[[nodiscard]] SearchResult SearchReference(const Reference& reference,
                                           std::u16string_view mainText);

}  // namespace lexmill
