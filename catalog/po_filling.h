// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// How an entry of a PO file is filled.
#pragma once

#include "catalog/filling.h"
#include "catalog/po_place.h"

namespace lexmill {

/// The changes that give an entry its target, a mark or none, and a translator's comment. The
/// target is laid out as the source is.
[[nodiscard]] Changes FillPoEntry(const PoPlace& place, const Filling& filling);

}  // namespace lexmill
