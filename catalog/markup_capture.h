// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// What an XML catalog holds between two tags.
#pragma once

#include <string>

#include "catalog/markup_place.h"
#include "platform/interchange/markup_reader.h"

namespace lexmill {

/// Puts together one element: its text and its place.
class MarkupCapture {
 public:
  /// @param escapesQuotes  what EscapesQuotes says as long as no quote was seen
  MarkupCapture(const platform::MarkupReader& reader, bool escapesQuotes)
      : reader_(reader), escapesQuotes_(escapesQuotes) {}

  /// Begins with the start tag that is the present event.
  void Begin(const platform::MarkupEvent& event);
  /// Takes the present event, which lies within the element or ends it.
  void Take(const platform::MarkupEvent& event);

  /// True from the start tag on, until the end tag has been taken.
  [[nodiscard]] bool IsOpen() const { return depth_ > 0; }

  // Of the element that was begun last:
  [[nodiscard]] const MarkupElement& Element() const { return element_; }
  [[nodiscard]] const std::u16string& Text() const { return text_; }
  /// True if it holds something else than text.
  [[nodiscard]] bool IsMixed() const { return isMixed_; }
  /// How the catalog wrote the last quote seen in any element: true for a reference.
  [[nodiscard]] bool EscapesQuotes() const { return escapesQuotes_; }

 private:
  void TakeStart(const platform::MarkupEvent& event);
  void TakeEnd(const platform::MarkupEvent& event);

  const platform::MarkupReader& reader_;
  MarkupElement element_;
  std::u16string text_;
  int depth_ = 0;
  bool isMixed_ = false;
  bool escapesQuotes_;
};

}  // namespace lexmill
