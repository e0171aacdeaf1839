// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// How an entry of an XML catalog is filled.
#pragma once

#include "catalog/filling.h"
#include "catalog/markup_place.h"

namespace lexmill {

/// The changes that give an entry its target, in an element that is made if it is missing, a mark
/// or none, and a translator's comment.
[[nodiscard]] Changes FillMarkupEntry(const MarkupPlace& place, const Filling& filling);

}  // namespace lexmill
