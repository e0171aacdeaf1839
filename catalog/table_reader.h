// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// The reader of tables (CSV, TSV), which serve as references only.
#pragma once

#include <string_view>

#include "catalog/catalog_entry.h"
#include "catalog/catalog_head.h"

namespace lexmill {

/// True if the first row of a file names a column of sources and one of targets. A name is one of a
/// few usual words in English or Chinese, or the language itself where `head` has it.
/// Never fails: what can't be read is no table.
[[nodiscard]] bool IsTable(std::u16string_view path, const CatalogHead& head);

/// The head of a table: UTF-8 if the file is that throughout, else the system's code page.
/// @throws platform::Failure if the file can't be read
[[nodiscard]] CatalogHead ReadTableHead(std::u16string_view path);

/// Reads a table to its end and reports its rows. Commas, semicolons or TABs part the columns, as
/// the first row has it. Rows without the two columns are passed over.
/// @throws platform::Failure with file, line and reason for a file whose first row doesn't name the
///   columns, or with a quote that is never closed, and what reading a file throws; whatever
///   `onEntry` throws
void ReadTable(std::u16string_view path, const CatalogHead& head, const OnEntry& onEntry);

}  // namespace lexmill
