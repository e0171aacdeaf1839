// SPDX-License-Identifier: MIT
#include "run/reference_search.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "platform/text/text.h"
#include "run/shared/option_set.h"

namespace lexmill {
namespace {

constexpr std::size_t kMostNear = 10;

class Search {
 public:
  explicit Search(std::u16string_view mainText) : wanted_(AsStored(mainText)), near_(wanted_) {}

  void Take(const ReferenceEntry& entry) {
    const std::u16string key(AsStored(entry.bare.source));
    const bool isWanted = (RunOptions().chkaUpperCase ? platform::UpperCase(key) : key) == wanted_;
    if (entry.use != EntryUse::Used) {
      if (isWanted) {
        result_.unused[entry.use].push_back(entry.line);
      }
    } else if (isWanted) {
      AddTranslation(entry);
    } else if (const auto differences = near_.Compare(key)) {
      AddNear({Kept(entry), *differences});
    }
  }

  [[nodiscard]] SearchResult Result() { return std::move(result_); }

 private:
  static FoundEntry Kept(const ReferenceEntry& entry) {
    return {entry.line, std::u16string(entry.source), std::u16string(entry.target)};
  }

  // A purified database has the same pair more than once, and no lines to tell one from another.
  template <class Entries, class Projection>
  static bool IsRepeated(const FoundEntry& entry, const Entries& others, Projection entryOf) {
    return entry.line == 0 && std::ranges::find(others, entry, entryOf) != others.end();
  }

  void AddTranslation(const ReferenceEntry& entry) {
    const std::u16string bare(AsStored(entry.bare.target));
    auto& translations = result_.translations;
    const auto [known, isNew] = places_.try_emplace(bare, translations.size());
    if (isNew) {
      translations.push_back({.bare = bare, .entries = {}});
    }
    auto& entries = translations[known->second].entries;
    FoundEntry kept = Kept(entry);
    if (!IsRepeated(kept, entries, std::identity())) {
      entries.push_back(std::move(kept));
    }
  }

  void AddNear(NearEntry entry) {
    auto& nearest = result_.nearest;
    if (IsRepeated(entry.entry, nearest, &NearEntry::entry)) {
      return;
    }
    const auto place =
        std::ranges::upper_bound(nearest, entry.differences.Count(), {},
                                 [](const NearEntry& other) { return other.differences.Count(); });
    nearest.insert(place, std::move(entry));
    if (nearest.size() > kMostNear) {
      nearest.pop_back();
      ++result_.furtherNear;
    }
  }

  std::u16string wanted_;
  NearString near_;
  SearchResult result_;
  std::map<std::u16string, std::size_t> places_;  ///< of translations in the result
};

}  // namespace

SearchResult SearchReference(const Reference& reference, std::u16string_view mainText) {
  Search search(mainText);
  ForEachReferenceEntry(reference, [&](const ReferenceEntry& entry) { search.Take(entry); });
  return search.Result();
}

}  // namespace lexmill
