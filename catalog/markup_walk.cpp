// SPDX-License-Identifier: MIT
#include "catalog/markup_walk.h"

namespace lexmill {

void MarkupWalk::TakeIndent(const platform::MarkupEvent& event) {
  const bool isBlank = event.text.find_first_not_of(u" \t\r\n") == std::u16string_view::npos;
  if (event.kind == platform::MarkupKind::Text && isBlank) {
    indent_ += reader_.Written();
  } else {
    indent_.clear();
  }
}

}  // namespace lexmill
