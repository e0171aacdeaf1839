// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// The reader of XLIFF 1.2 files.
#pragma once

#include <string_view>

#include "catalog/catalog_entry.h"
#include "catalog/catalog_head.h"

namespace lexmill {

/// The languages are those of the first of the files that one file holds.
/// @throws platform::Failure as ReadXliff
[[nodiscard]] CatalogHead ReadXliffHead(std::u16string_view path);

/// Reads an XLIFF file, version 1.0 to 1.2, to its end and reports its units. One that isn't to be
/// translated is Fixed, one of a group of plural forms Plural. The state of a target counts, and
/// where it has none, that the unit is not said to be unapproved.
/// @throws platform::Failure with file, line and reason for what isn't well-formed or of a later
///   version, and what reading a file throws; whatever `onEntry` throws
/// Source: XLIFF 1.2, OASIS standard of 1 February 2008
void ReadXliff(std::u16string_view path, const CatalogHead& head, const OnEntry& onEntry);

}  // namespace lexmill
