// SPDX-License-Identifier: MIT
// run: turns one press of the start command into a finished run.
// What lexmill-run does with catalogs without a run: a dictionary of them, and the way back.
#pragma once

#include <span>
#include <string>

namespace lexmill {

/// Writes the entries of catalogs as one dictionary in UTF-8: a text if its name ends in ".txt",
/// else a glossary, with a head line if the language table has the languages of the first catalog.
/// @param paths  one or more catalogs, and the dictionary
/// @throws platform::Failure for a file that is no catalog, if the dictionary would replace one,
/// and
///   what reading and writing throws
void ConvertCatalogs(std::span<const std::u16string> paths);

/// Fills a catalog with what a translated dictionary has for its entries.
/// @param paths  the catalog, the dictionary, the result
/// @return what has become of the catalog's entries, a sentence
/// @throws platform::Failure for a file that is no catalog or no dictionary, if the result would
///   replace the dictionary, and what reading and writing throws
[[nodiscard]] std::u16string FillCatalogFrom(std::span<const std::u16string> paths);

}  // namespace lexmill
