// SPDX-License-Identifier: MIT
#include "catalog/catalog_fill.h"

#include <algorithm>

#include "catalog/catalog_strings.h"

namespace lexmill {
namespace {

std::u16string Listed(const std::vector<std::u16string>& targets, char16_t accelerator) {
  std::u16string listed;
  for (const std::u16string& target : targets) {
    listed += (listed.empty() ? u"" : u" | ") + WithAccelerator(target, accelerator);
  }
  return listed;
}

std::u16string StateFor(const CatalogOptions& options) {
  return options.trusted ? u"translated" : options.state;
}

}  // namespace

void PassedOver::Count(const CatalogEntry& entry) {
  plural += entry.kind == EntryKind::Plural ? 1 : 0;
  inlined += entry.kind == EntryKind::Inline ? 1 : 0;
}

void Translations::Add(std::u16string_view source, std::u16string_view target) {
  auto& targets = targets_[std::u16string(source)];
  if (std::find(targets.begin(), targets.end(), target) == targets.end()) {
    targets.emplace_back(target);
  }
}

const std::vector<std::u16string>* Translations::Find(const std::u16string& source) const {
  const auto found = targets_.find(source);
  return found == targets_.end() ? nullptr : &found->second;
}

bool IsToFill(const CatalogEntry& entry, const CatalogOptions& options) {
  const bool isMarked = entry.state == EntryState::Marked && options.refillFuzzy;
  return entry.kind == EntryKind::Plain && (entry.state == EntryState::Open || isMarked);
}

std::optional<Filling> ChooseTarget(const CatalogEntry& entry, char16_t accelerator,
                                    const CatalogOptions& options, const Translations& translations,
                                    FillCounts& counts) {
  if (entry.state == EntryState::Open) {
    counts.passedOver.Count(entry);
  }
  if (!IsToFill(entry, options)) {
    return std::nullopt;
  }
  std::u16string room;
  const auto* const targets =
      translations.Find(std::u16string(ToDictionary(entry.source, accelerator, room)));
  if (targets == nullptr || targets->front().empty()) {
    return std::nullopt;
  }
  const bool isSeveral = targets->size() > 1;
  counts.several += isSeveral ? 1 : 0;
  if (isSeveral && options.skipSeveral) {
    return std::nullopt;
  }
  Filling filling{
      TurnEnding(entry.source, FromDictionary(targets->front(), accelerator), options.endings),
      isSeveral ? Listed(*targets, accelerator) : u"", StateFor(options), !options.trusted};
  const bool isSame = filling.target == entry.target;
  if (isSame && !options.trusted) {
    return std::nullopt;
  }
  if (isSame) {
    filling.comment.clear();  // it came with the target
  }
  ++counts.filled;
  return filling;
}

FillCounts FillFrom(const Catalog& catalog, std::u16string_view result,
                    const CatalogOptions& options, const Translations& translations) {
  FillCounts counts;
  FillCatalog(catalog.format, catalog.path, result, catalog.head, [&](const CatalogEntry& entry) {
    return ChooseTarget(entry, catalog.accelerator, options, translations, counts);
  });
  return counts;
}

}  // namespace lexmill
