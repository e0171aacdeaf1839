// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// The reader of TMX files, which serve as references only.
#pragma once

#include <string_view>

#include "catalog/catalog_entry.h"
#include "catalog/catalog_head.h"

namespace lexmill {

/// The source language is that of the header, or English if that leaves it open; the target
/// language is Chinese. @throws platform::Failure as ReadTmx
[[nodiscard]] CatalogHead ReadTmxHead(std::u16string_view path);

/// Reads a TMX file, version 1.1 to 1.4, to its end and reports the units that have both languages
/// of `head`; the first variant in a language counts.
/// @throws platform::Failure with file, line and reason for what isn't well-formed, and what
///   reading a file throws; whatever `onEntry` throws
/// Source: TMX 1.4b, LISA OSCAR recommendation
void ReadTmx(std::u16string_view path, const CatalogHead& head, const OnEntry& onEntry);

}  // namespace lexmill
