// SPDX-License-Identifier: MIT
// run: turns one press of the start command into a finished run.
// What is said of the entries of a catalog.
#pragma once

#include <string>

#include "catalog/catalog_dictionary.h"

namespace lexmill {

/// What has become of a catalog's entries: a Chinese sentence that names the file.
[[nodiscard]] std::u16string FillSentence(const Catalog& catalog, const FillCounts& counts);

/// What of a catalog was passed over: a sentence of that kind, empty if nothing was.
[[nodiscard]] std::u16string UnusedSentence(const Catalog& catalog, const PassedOver& entries);

}  // namespace lexmill
