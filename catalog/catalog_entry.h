// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// An entry of a catalog, whatever its format, and a change of the catalog's file.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <variant>

#include "catalog/markup_place.h"
#include "catalog/po_place.h"

namespace lexmill {

/// How far an entry is translated.
enum class EntryState {
  Open,        ///< it has no target, or an empty one
  Marked,      ///< it has a target that somebody has to review
  Translated,  ///< it has a target that holds
};

/// Whether an entry is a pair of strings like any other.
enum class EntryKind {
  Plain,
  Plural,  ///< it has several forms
  Inline,  ///< its source or target holds elements
  Fixed,   ///< not for translation: the header of a catalog, what has vanished from the program
};

/// An entry as the catalog means it: escapes and references are resolved.
struct CatalogEntry {
  std::u16string context;
  std::u16string source;
  std::u16string target;
  EntryState state = EntryState::Open;
  EntryKind kind = EntryKind::Plain;
  std::int64_t line = 0;  ///< where it begins; the first is 1
  /// Where its pieces lie; none for a format that is only read.
  std::variant<std::monostate, PoPlace, MarkupPlace> place;
};

/// Sees the entries of a catalog in their order; an entry is valid until it returns.
using OnEntry = std::function<void(const CatalogEntry&)>;

}  // namespace lexmill
