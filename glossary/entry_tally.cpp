// SPDX-License-Identifier: MIT
#include "glossary/entry_tally.h"

#include <algorithm>
#include <utility>

#include "run/shared/run_state.h"

namespace lexmill {
namespace {

// Two numbers with a blank between them.
bool IsLanguageKey(std::u16string_view text) {
  const auto isDigit = [](char16_t unit) { return unit >= u'0' && unit <= u'9'; };
  const auto blank = std::ranges::find_if_not(text, isDigit);
  return blank != text.begin() && blank != text.end() && *blank == u' ' &&
         blank + 1 != text.end() && std::all_of(blank + 1, text.end(), isDigit);
}

}  // namespace

void EntryTally::Start(std::u16string_view path) {
  counts_ = &TheRun().counts;
  dropped_ = &counts_->dropped[std::u16string(path)];
  mayBeHead_ = KindOf(path).format == modMain::DictionaryFormat::PassoloGlossary;
}

void EntryTally::MoreColumns() {
  mayBeHead_ = false;
  ++dropped_->moreColumns;
}

void EntryTally::Reference(std::u16string_view source, std::u16string_view target, bool used) {
  if (TakeHead(source, target)) {
    return;
  }
  if (used) {
    ++counts_->referenceEntries;
  } else {
    ++(source == target ? dropped_->equalSides : dropped_->tooLong);
  }
}

void EntryTally::Untranslated(std::u16string_view source, std::u16string_view target,
                              bool searched) {
  if (TakeHead(source, target)) {
    return;
  }
  // Sides that a row was made of are equal; comparing them once more would be felt.
  if (!searched && source != target) {
    ++counts_->alreadyTranslated;
    return;
  }
  RunState& run = TheRun();
  if (run.strings != nullptr) {
    run.strings->AddEntry(AsStored(source), !searched);
  }
  if (searched) {
    ++counts_->searched;
    run.untranslated.Add(source);
  } else {
    ++counts_->tooLong;
  }
}

bool EntryTally::TakeHead(std::u16string_view source, std::u16string_view target) {
  return std::exchange(mayBeHead_, false) && IsLanguageKey(source) && IsLanguageKey(target);
}

void CountTranslation(std::u16string_view source, std::u16string_view translation) {
  RunState& run = TheRun();
  if (run.strings != nullptr) {
    run.strings->AddTranslation(source, translation);
  }
  const StringTally::Gained gained = run.untranslated.Translate(source);
  run.counts.filled += gained.filled;
  run.counts.several += gained.several;
}

}  // namespace lexmill
