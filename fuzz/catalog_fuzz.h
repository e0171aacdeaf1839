// SPDX-License-Identifier: MIT
// fuzz: properties that hold for any input.
// What holds for a catalog of any format: what nothing fills keeps every byte, and what was filled
// is read back while all else is as it was.
#pragma once

#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalog/catalog_format.h"
#include "foundation/entry_point.h"
#include "fuzz/fuzz_input.h"

namespace lexmill::fuzz {

using CatalogEntries = std::vector<CatalogEntry>;

/// The entries of a catalog; none if it can't be read.
inline std::optional<CatalogEntries> ReadEntries(CatalogFormat format, const std::u16string& path) {
  CatalogEntries entries;
  const bool isRead = IgnoreFailures([&] {
    const CatalogHead head = ReadCatalogHead(format, path);
    ReadCatalog(format, path, head, [&](const CatalogEntry& entry) { entries.push_back(entry); });
  });
  return isRead ? std::optional(entries) : std::nullopt;
}

inline bool IsToFill(const CatalogEntry& entry) {
  return entry.kind == EntryKind::Plain && entry.state == EntryState::Open;
}

/// What the tests fill an entry with: characters that each format writes in its own way.
inline Filling FillingFor(const CatalogEntry& entry) {
  return {entry.source + u"\n译<&>\"'\\n\\ \t]]>", u"译 | -- <&>", u"needs-review-translation",
          true};
}

/// Writes the catalog `path` as `result`. @return false if that fails
inline bool Fill(CatalogFormat format, const std::u16string& path, const std::u16string& result,
                 const ChooseFilling& choose) {
  return IgnoreFailures(
      [&] { FillCatalog(format, path, result, ReadCatalogHead(format, path), choose); });
}

inline void CompareEntries(const CatalogEntries& before, const CatalogEntries& after) {
  Require(before.size() == after.size(), "no entry comes or goes");
  for (std::size_t i = 0; i < before.size(); ++i) {
    const bool isFilled = IsToFill(before[i]);
    Require(before[i].source == after[i].source, "a source stays");
    Require(before[i].context == after[i].context, "a context stays");
    Require(before[i].kind == after[i].kind, "a kind stays");
    const std::u16string expected = isFilled ? FillingFor(before[i]).target : before[i].target;
    Require(after[i].target == expected || before[i].kind == EntryKind::Fixed,
            "what was filled is read back");
    Require(!isFilled || after[i].state == EntryState::Marked, "what was filled is marked");
  }
}

/// Reads one file of a format that serves as a reference only, twice.
inline int CheckReference(CatalogFormat format, std::string_view bytes) {
  static const ScratchFolder folder;
  const std::u16string path = folder.Path("catalog");
  folder.Write("catalog", bytes);
  const auto first = ReadEntries(format, path);
  const auto second = ReadEntries(format, path);
  Require(first.has_value() == second.has_value(), "a file can be read or not");
  Require(!first || first->size() == second->size(), "a file has its entries");
  for (const CatalogEntry& entry : first.value_or(CatalogEntries())) {
    Require((entry.state == EntryState::Open) == entry.target.empty(), "no target is no state");
    Require(entry.place.index() == 0, "nothing can be filled");
  }
  return 0;
}

/// Holds the properties for one file of a format that can be filled.
inline int CheckCatalog(CatalogFormat format, std::string_view bytes) {
  static const ScratchFolder folder;
  const std::u16string path = folder.Path("catalog");
  const std::u16string result = folder.Path("result");
  folder.Write("catalog", bytes);
  const auto before = ReadEntries(format, path);
  if (!before) {
    return 0;
  }
  const auto none = [](const CatalogEntry&) { return std::optional<Filling>(); };
  Require(Fill(format, path, result, none), "what can be read can be written");
  std::ifstream stream(folder.HostPath("result"), std::ios::binary);
  const std::string same{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  Require(same == bytes, "filling nothing gives the file byte for byte");
  const bool isFilled = Fill(format, path, result, [](const CatalogEntry& entry) {
    return IsToFill(entry) ? std::optional(FillingFor(entry)) : std::nullopt;
  });
  if (isFilled) {
    const auto after = ReadEntries(format, result);
    Require(after.has_value(), "what was filled can be read");
    CompareEntries(*before, *after);
  }
  return 0;
}

}  // namespace lexmill::fuzz
