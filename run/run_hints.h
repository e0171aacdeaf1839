// SPDX-License-Identifier: MIT
// run: turns one press of the start command into a finished run.
// Hints: what a run's user may have meant otherwise. A hint is no failure.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "run/shared/dictionary_kind.h"
#include "run/shared/run_counts.h"

namespace lexmill {

/// A dictionary of a run.
struct HintedDictionary {
  std::u16string path;
  DictionaryKind kind;
  bool isToDoFile = false;  ///< of a reference: the untranslated dictionary is this very file
};

/// The hints of a run, each a sentence in Chinese without its full stop that names the file.
/// @param counts  of the run; only what they say of a complete run is used
[[nodiscard]] std::vector<std::u16string> HintsOf(const RunCounts& counts,
                                                  const HintedDictionary& toDo,
                                                  std::span<const HintedDictionary> references);

}  // namespace lexmill
