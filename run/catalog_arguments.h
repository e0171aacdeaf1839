// SPDX-License-Identifier: MIT
// run: turns one press of the start command into a finished run.
// The options of lexmill-run that catalogs have.
#pragma once

#include <string>
#include <string_view>

#include "run/shared/catalog_options.h"

namespace lexmill {

/// What --help says of these options: UTF-8, each line ended by LF.
inline constexpr std::string_view kCatalogHelp =
    "\n"
    "Each of the dictionaries may be a PO, TS or XLIFF file, and REFER a TMX, CSV or TSV file.\n"
    "FINAL then has the format of TODO: the same file with targets filled in.\n"
    "\n"
    "  --refill-fuzzy         fill entries, too, that have a target for review\n"
    "  --trusted              don't mark what was filled for review\n"
    "  --several first|skip   with several translations take the first and list all in a\n"
    "                         comment, which is the default, or leave the entry open\n"
    "  --state NAME           the state of filled units of an XLIFF file\n"
    "  --ending FROM=TO       turn the ending of filled targets, such as :=：\n"
    "  --accelerator MARK     what marks a hot key in PO and XLIFF files: & _ ~ ^ or $\n"
    "  --languages FROM:TO    the languages to take from a TMX, CSV or TSV file\n"
    "  --convert FILE... OUT  write the entries of catalogs as a dictionary, .glo or .txt\n"
    "  --fill CATALOG RESULT OUT\n"
    "                         fill a catalog from a translated dictionary\n";

/// True if `option` is one of catalogs.
[[nodiscard]] bool IsCatalogOption(std::string_view option);
/// True if such an option is followed by a value.
[[nodiscard]] bool WantsValue(std::string_view option);

/// Sets an option of catalogs. @param value  empty for one without a value
/// @return what is wrong with the value, a sentence in UTF-8; empty if nothing is
[[nodiscard]] std::string SetCatalogOption(std::string_view option, std::string_view value,
                                           CatalogOptions& options);

}  // namespace lexmill
