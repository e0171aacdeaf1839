// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// A catalog as a dictionary of the system, and what such a dictionary says of translations.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "catalog/catalog_fill.h"
#include "run/shared/dictionary_kind.h"

namespace lexmill {

/// Sees the two sides of an entry of a dictionary; they are valid until it returns.
using OnPair = std::function<void(std::u16string_view source, std::u16string_view target)>;

/// The same for an entry of a catalog that begins in line `line`.
using OnPairInLine =
    std::function<void(std::u16string_view source, std::u16string_view target, std::int64_t line)>;

/// Entries of a catalog that are not reported.
struct EntryCounts {
  std::int64_t translated = 0;
  PassedOver passedOver{};
};

/// Reports the entries of a catalog that wait for a target, with the source on either side.
/// @return what else it has, open plural and inline entries alone
/// @throws platform::Failure as ReadCatalog
EntryCounts ReadUntranslated(const Catalog& catalog, const CatalogOptions& options,
                             const OnPair& onPair);

/// Reports the translated entries of a catalog.
/// @return its translated plural and inline entries
/// @throws platform::Failure as ReadCatalog
PassedOver ReadTranslated(const Catalog& catalog, const OnPairInLine& onPair);

/// Reports the entries of both kinds in their order.
/// @throws platform::Failure as ReadCatalog
void ReadAll(const Catalog& catalog, const CatalogOptions& options, const OnPair& onPair);

/// What a dictionary of the system translates: entries whose two sides differ.
/// @throws platform::Failure what reading a file throws
[[nodiscard]] Translations ReadTranslations(std::u16string_view path, const DictionaryKind& kind);

/// What a run has found: all entries of the dictionary that it has written, since some strings are
/// translated by themselves. @throws platform::Failure what reading a file throws
[[nodiscard]] Translations ReadFound(std::u16string_view path, const DictionaryKind& kind);

}  // namespace lexmill
