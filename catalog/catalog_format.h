// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// The formats, and what serves each of them.
#pragma once

#include <functional>
#include <optional>
#include <string_view>

#include "catalog/catalog_entry.h"
#include "catalog/catalog_head.h"
#include "catalog/filling.h"

namespace lexmill {

enum class CatalogFormat { Po, Ts, Xliff, Tmx, Table };

/// What the catalog `path` says of itself. @throws platform::Failure as ReadCatalog
[[nodiscard]] CatalogHead ReadCatalogHead(CatalogFormat format, std::u16string_view path);

/// Reads a catalog to its end and reports its entries.
/// @throws platform::Failure with file, line and reason for what isn't of the format, and what
///   reading a file throws; whatever `onEntry` throws
void ReadCatalog(CatalogFormat format, std::u16string_view path, const CatalogHead& head,
                 const OnEntry& onEntry);

/// Says what an entry gets; none leaves it as it is.
using ChooseFilling = std::function<std::optional<Filling>(const CatalogEntry&)>;

/// Writes the catalog `path` as `result`, which may be the same file, with the fillings that
/// `choose` gives; not a byte is changed elsewhere. Nothing is written after a failure.
/// @throws platform::Failure as ReadCatalog; if the catalog's encoding lacks a character; and what
///   writing a file throws
void FillCatalog(CatalogFormat format, std::u16string_view path, std::u16string_view result,
                 const CatalogHead& head, const ChooseFilling& choose);

}  // namespace lexmill
