// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// The reader of PO files and of their templates.
#pragma once

#include <string_view>

#include "catalog/catalog_entry.h"
#include "catalog/catalog_head.h"

namespace lexmill {

/// The head of a PO file, from the header entry, which is the first one as a rule and may come
/// later. Without one the file is taken for UTF-8.
/// @throws platform::Failure as ReadPo, or if the header names an unknown charset
[[nodiscard]] CatalogHead ReadPoHead(std::u16string_view path);

/// Reads a PO file to its end and reports its entries. What is obsolete is passed over; plural
/// forms are not read, their entries have the first form as source and the target of that.
/// @param head  from ReadPoHead
/// @throws platform::Failure with file, line and reason for what is no PO, and what reading a file
///   throws; whatever `onEntry` throws
/// Source: the grammar of PO files in the manual of GNU gettext
void ReadPo(std::u16string_view path, const CatalogHead& head, const OnEntry& onEntry);

}  // namespace lexmill
