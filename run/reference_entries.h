// SPDX-License-Identifier: MIT
// run: turns one press of the start command into a finished run.
// The entries of a reference, read and purified as the stages of a run do.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "glossary/text_rules.h"
#include "run/shared/run_state.h"

namespace lexmill {

/// Whether a run makes use of an entry and, if not, why.
enum class EntryUse { Used, EqualSides, MoreColumns, TooLong };

/// An entry of a reference.
struct ReferenceEntry {
  std::int64_t line = 0;       ///< where it begins, the first being 1; 0 in a purified database
  std::u16string_view source;  ///< as the reference has it
  std::u16string_view target;
  EntryUse use = EntryUse::Used;
  PurifiedPair bare;  ///< after the rules; of an entry that is not used the source alone
};

/// Sees an entry, which is valid until it returns.
using OnReferenceEntry = std::function<void(const ReferenceEntry&)>;

/// Reads a reference of any kind to its end, or until the run is abandoned, and reports its entries
/// in their order. Keeps the kind of a dictionary in the run's state, and notes what of a catalog
/// is of no use. A database is listed by the `batch` and `sqlite` programs; no file of that is
/// left.
/// @throws platform::Failure for a file that can't be read or is of no known format, and as
///   ReferenceRules, and whatever `onEntry` throws
void ForEachReferenceEntry(const Reference& reference, const OnReferenceEntry& onEntry);

}  // namespace lexmill
