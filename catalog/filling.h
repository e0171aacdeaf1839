// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// What an entry is filled with, and the changes of its file that this makes.
#pragma once

#include <string>
#include <vector>

#include "platform/files/file_range.h"

namespace lexmill {

/// What an entry gets.
struct Filling {
  std::u16string target;    ///< as the catalog means it: without escapes
  std::u16string comment;   ///< all translations, for the translator, one line; empty for none
  std::u16string state;     ///< the name of the state, where the format has a choice of them
  bool needsReview = true;  ///< whether the entry is marked
};

/// A stretch of a file, and the text that takes its place.
struct Change {
  platform::FileRange range;
  std::u16string text;
};

/// Changes of one file that don't overlap, in the order of their places.
using Changes = std::vector<Change>;

}  // namespace lexmill
