// SPDX-License-Identifier: MIT
// run/shared: what every room may read of a run.
// What a user chooses for message catalogs.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace lexmill {

/// Two languages of a dictionary, by their tags.
struct Languages {
  std::u16string source;
  std::u16string target;
};

/// The last characters of a target, and what takes their place.
struct Ending {
  std::u16string from;
  std::u16string to;
};

struct CatalogOptions {
  /// The mark before a hot key in PO and XLIFF files that don't name theirs.
  char16_t accelerator = u'&';
  std::optional<Languages> languages;  ///< which columns or variants a reference gives
  bool refillFuzzy = false;            ///< fills marked entries, too
  bool trusted = false;                ///< leaves the marks away
  bool skipSeveral = false;            ///< leaves entries with several translations open
  /// The state of units of XLIFF files that are marked.
  std::u16string state = u"needs-review-translation";
  std::vector<Ending> endings;
};

}  // namespace lexmill
