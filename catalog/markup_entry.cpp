// SPDX-License-Identifier: MIT
#include "catalog/markup_entry.h"

#include <utility>

namespace lexmill {

void MarkupEntry::Begin() {
  isOpen_ = true;
  entry_ = {};
  entry_.line = walk_.Reader().Line();
  place_ = {};
  place_.language = language_;
  place_.page = head_.page;
}

void MarkupEntry::TakeSource() {
  entry_.source = walk_.Capture().Text();
  place_.source = walk_.Capture().Element();
  place_.afterSource = place_.source.end;
  NoteElements();
}

void MarkupEntry::TakeTarget() {
  entry_.target = walk_.Capture().Text();
  place_.target = walk_.Capture().Element();
  NoteElements();
}

void MarkupEntry::NoteElements() {
  if (walk_.Capture().IsMixed() && entry_.kind == EntryKind::Plain) {
    entry_.kind = EntryKind::Inline;
  }
}

void MarkupEntry::Complete(bool isMarked, const OnEntry& onEntry) {
  if (!std::exchange(isOpen_, false)) {
    return;
  }
  if (entry_.source.empty() && entry_.kind == EntryKind::Plain) {
    entry_.kind = EntryKind::Fixed;
  }
  if (!entry_.target.empty()) {
    entry_.state = isMarked ? EntryState::Marked : EntryState::Translated;
  }
  place_.escapesQuotes = walk_.Capture().EscapesQuotes();
  entry_.place = place_;
  onEntry(entry_);
}

}  // namespace lexmill
