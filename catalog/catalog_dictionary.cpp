// SPDX-License-Identifier: MIT
#include "catalog/catalog_dictionary.h"

#include <string>

#include "catalog/catalog_strings.h"
#include "platform/files/file_system.h"
#include "text/text_entry.h"

namespace lexmill {
namespace {

using modMain::DictionaryFormat;

constexpr char16_t kTab = u'\t';

bool IsReference(const CatalogEntry& entry) {
  return entry.kind == EntryKind::Plain && entry.state == EntryState::Translated;
}

void ReadGlossaryPairs(platform::TextReader& input, const OnPair& onPair) {
  while (!input.AtEndOfStream()) {
    const std::u16string_view line = input.ReadLine();
    const std::size_t tab = line.find(kTab);
    if (tab != std::u16string_view::npos && line.find(kTab, tab + 1) == std::u16string_view::npos) {
      onPair(line.substr(0, tab), line.substr(tab + 1));
    }
  }
}

void ReadTextPairs(platform::TextReader& input, const OnPair& onPair) {
  while (!input.AtEndOfStream()) {
    if (const auto source = SourceOfHeadLine(input.ReadLine())) {
      const std::u16string kept(*source);
      onPair(kept, input.AtEndOfStream() ? std::u16string_view() : input.ReadLine());
    }
  }
}

void ReadPairs(std::u16string_view path, const DictionaryKind& kind, const OnPair& onPair) {
  auto input = platform::FileSystemObject().OpenTextFile(path, kind.encoding);
  if (kind.format == DictionaryFormat::DianjingText) {
    ReadTextPairs(input, onPair);
  } else {
    ReadGlossaryPairs(input, onPair);
  }
}

}  // namespace

EntryCounts ReadUntranslated(const Catalog& catalog, const CatalogOptions& options,
                             const OnPair& onPair) {
  EntryCounts others;
  std::u16string room;
  ReadCatalog(catalog.format, catalog.path, catalog.head, [&](const CatalogEntry& entry) {
    if (IsToFill(entry, options)) {
      const auto source = ToDictionary(entry.source, catalog.accelerator, room);
      onPair(source, source);
    } else if (entry.state == EntryState::Open) {
      others.passedOver.Count(entry);
    } else if (IsReference(entry)) {
      ++others.translated;
    }
  });
  return others;
}

PassedOver ReadTranslated(const Catalog& catalog, const OnPairInLine& onPair) {
  PassedOver unused;
  std::u16string sourceRoom;
  std::u16string targetRoom;
  ReadCatalog(catalog.format, catalog.path, catalog.head, [&](const CatalogEntry& entry) {
    if (IsReference(entry)) {
      onPair(ToDictionary(entry.source, catalog.accelerator, sourceRoom),
             ToDictionary(entry.target, catalog.accelerator, targetRoom), entry.line);
    } else if (entry.state == EntryState::Translated) {
      unused.Count(entry);
    }
  });
  return unused;
}

void ReadAll(const Catalog& catalog, const CatalogOptions& options, const OnPair& onPair) {
  std::u16string sourceRoom;
  std::u16string targetRoom;
  ReadCatalog(catalog.format, catalog.path, catalog.head, [&](const CatalogEntry& entry) {
    const bool isToFill = IsToFill(entry, options);
    if (isToFill || IsReference(entry)) {
      const auto source = ToDictionary(entry.source, catalog.accelerator, sourceRoom);
      onPair(source,
             isToFill ? source : ToDictionary(entry.target, catalog.accelerator, targetRoom));
    }
  });
}

Translations ReadTranslations(std::u16string_view path, const DictionaryKind& kind) {
  Translations translations;
  ReadPairs(path, kind, [&](std::u16string_view source, std::u16string_view target) {
    if (source != target) {
      translations.Add(source, target);
    }
  });
  return translations;
}

Translations ReadFound(std::u16string_view path, const DictionaryKind& kind) {
  Translations found;
  ReadPairs(path, kind, [&](std::u16string_view source, std::u16string_view target) {
    found.Add(source, target);
  });
  return found;
}

}  // namespace lexmill
