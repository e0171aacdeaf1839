// SPDX-License-Identifier: MIT
// tests/catalog: catalogs in, catalogs out.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "catalog/catalog_format.h"
#include "platform/failure.h"
#include "platform/text/text.h"
#include "tests/support/files.h"

namespace lexmill::test {

/// One catalog in a folder of its own.
class CatalogWorld {
 public:
  CatalogWorld(CatalogFormat format, std::string_view bytes) : format_(format) {
    WriteBytes(path_, bytes);
  }

  /// The entries as "kind state context|source|target" lines; kinds Plain, Number of forms, Inline,
  /// Fixed and states Open, Marked, Translated by their first letter.
  [[nodiscard]] std::string Entries() const {
    std::string lines;
    const CatalogHead head = ReadCatalogHead(format_, path_);
    ReadCatalog(format_, path_, head, [&](const CatalogEntry& entry) {
      lines += Letter("PNIF", static_cast<int>(entry.kind));
      lines += Letter("OMT", static_cast<int>(entry.state));
      lines += " " + platform::ToUtf8(entry.context + u"|" + entry.source + u"|" + entry.target);
      lines += "\n";
    });
    return lines;
  }

  /// The bytes of the catalog with the entries filled whose sources `fillings` knows.
  [[nodiscard]] std::string Filled(const std::map<std::u16string, Filling>& fillings) const {
    const auto choose = [&](const CatalogEntry& entry) {
      const auto found = fillings.find(entry.source);
      return found == fillings.end() ? std::nullopt : std::optional(found->second);
    };
    return FilledBy(choose);
  }
  [[nodiscard]] std::string FilledBy(const ChooseFilling& choose) const {
    FillCatalog(format_, path_, result_, ReadCatalogHead(format_, path_), choose);
    return ReadBytes(result_);
  }

  /// Why the catalog can't be read or filled, from after its name on; empty if it can.
  [[nodiscard]] std::string Complaint(
      const std::map<std::u16string, Filling>& fillings = {}) const {
    try {
      static_cast<void>(Filled(fillings));
    } catch (const platform::Failure& failure) {
      EXPECT_EQ(folder_.Listing(), "catalog");
      const std::string text = platform::ToUtf8(failure.Description());
      return text.substr(text.find("”") + std::string_view("”").size());
    }
    return {};
  }

 private:
  static std::string Letter(std::string_view letters, int number) {
    return std::string(1, letters[static_cast<std::size_t>(number)]);
  }

  CatalogFormat format_;
  TemporaryFolder folder_;
  std::u16string path_ = folder_.File("catalog");
  std::u16string result_ = folder_.File("result");
};

}  // namespace lexmill::test
