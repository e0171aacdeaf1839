// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// Which entries of a catalog are filled, and with what.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "catalog/catalog.h"

namespace lexmill {

/// Strings of a dictionary with their translations, as the dictionary has them.
class Translations {
 public:
  /// Adds a pair; one that is there already counts once.
  void Add(std::u16string_view source, std::u16string_view target);
  /// The different translations of `source` in the order in which they were added; none is null.
  [[nodiscard]] const std::vector<std::u16string>* Find(const std::u16string& source) const;

 private:
  std::unordered_map<std::u16string, std::vector<std::u16string>> targets_;
};

/// Entries of a catalog that can't be used.
struct PassedOver {
  std::int64_t plural = 0;   ///< for their forms
  std::int64_t inlined = 0;  ///< for the elements in them

  /// Counts an entry if it is one of them.
  void Count(const CatalogEntry& entry);
  bool operator==(const PassedOver&) const = default;
};

/// What has become of the entries of one catalog.
struct FillCounts {
  std::int64_t filled = 0;
  std::int64_t several = 0;  ///< with several translations, filled or left open
  PassedOver passedOver{};   ///< of the open ones

  bool operator==(const FillCounts&) const = default;
};

/// True if an entry waits for a target: it is plain, and open or, if that is wanted, marked.
[[nodiscard]] bool IsToFill(const CatalogEntry& entry, const CatalogOptions& options);

/// What an entry gets, and nothing if it stays as it is; counts it.
/// An entry whose target is already what it would get stays as it is unless its mark goes.
[[nodiscard]] std::optional<Filling> ChooseTarget(const CatalogEntry& entry, char16_t accelerator,
                                                  const CatalogOptions& options,
                                                  const Translations& translations,
                                                  FillCounts& counts);

/// Writes `catalog` as `result`, filled from `translations`. @throws platform::Failure as
/// FillCatalog
[[nodiscard]] FillCounts FillFrom(const Catalog& catalog, std::u16string_view result,
                                  const CatalogOptions& options, const Translations& translations);

}  // namespace lexmill
