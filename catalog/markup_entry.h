// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// How an entry of an XML catalog that can be filled comes together.
#pragma once

#include "catalog/catalog_entry.h"
#include "catalog/catalog_head.h"
#include "catalog/markup_walk.h"

namespace lexmill {

/// The entry that a parser works at.
class MarkupEntry {
 public:
  MarkupEntry(MarkupPlace::Language language, const CatalogHead& head, const MarkupWalk& walk)
      : language_(language), head_(head), walk_(walk) {}

  /// Begins with the start tag that is the present event. An entry within another takes its place.
  void Begin();
  [[nodiscard]] bool IsOpen() const { return isOpen_; }
  /// The element captured last is its source, or its target.
  void TakeSource();
  void TakeTarget();
  /// Reports it if it is open. A plain one without a source is Fixed.
  /// @param isMarked  whether a target that it may have is for review
  void Complete(bool isMarked, const OnEntry& onEntry);

  // What a format adds to it:
  [[nodiscard]] CatalogEntry& Entry() { return entry_; }
  [[nodiscard]] MarkupPlace& Place() { return place_; }

 private:
  void NoteElements();

  MarkupPlace::Language language_;
  const CatalogHead& head_;
  const MarkupWalk& walk_;
  bool isOpen_ = false;
  CatalogEntry entry_;
  MarkupPlace place_;
};

}  // namespace lexmill
