// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// The reader of TS files of Qt programs.
#pragma once

#include <string_view>

#include "catalog/catalog_entry.h"
#include "catalog/catalog_head.h"

namespace lexmill {

/// @throws platform::Failure as ReadTs
[[nodiscard]] CatalogHead ReadTsHead(std::u16string_view path);

/// Reads a TS file, versions 1.1 to 2.1, to its end and reports its messages. A message that has
/// vanished from the program is Fixed, one with variants of different lengths Inline.
/// @throws platform::Failure with file, line and reason for what isn't well-formed, and what
///   reading a file throws; whatever `onEntry` throws
/// Source: the document type definition of the format in the manual of Qt Linguist
void ReadTs(std::u16string_view path, const CatalogHead& head, const OnEntry& onEntry);

}  // namespace lexmill
