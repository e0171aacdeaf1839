// SPDX-License-Identifier: MIT
// run: turns one press of the start command into a finished run.
// Catalogs in a run: a temporary glossary takes the place of each.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "catalog/catalog.h"
#include "catalog/catalog_dictionary.h"
#include "pipeline/temporary_files.h"

namespace lexmill {

/// The catalogs of one run. Keeps their stand-ins and their kinds in the run's state; when it goes,
/// the stand-ins go, and their files unless temporary files are kept, and what the run has counted
/// for them counts for their catalogs.
class CatalogRun {
 public:
  /// @param result  where the run's result goes
  explicit CatalogRun(std::u16string result);
  ~CatalogRun();
  CatalogRun(const CatalogRun&) = delete;
  CatalogRun& operator=(const CatalogRun&) = delete;

  /// Lets a glossary of its open entries stand in for `toDo` if that is a catalog, and one that is
  /// still to be written for the result.
  /// @throws platform::Failure with file, line and reason for a catalog that doesn't parse; for one
  ///   of a format that is only read; if the result is one of `references`
  void TakeUntranslated(const std::u16string& toDo, std::span<const std::u16string> references);
  /// Lets a glossary of its translated entries stand in for `path` if that is a catalog.
  /// @throws platform::Failure for a catalog that doesn't parse, and if the result would replace it
  void TakeReference(const std::u16string& path);
  /// As TakeReference, for a table; to be asked for a file that is no dictionary of another format.
  void TakeTable(const std::u16string& path);

  /// Fills the catalog that TakeUntranslated found from the glossary that the run has written.
  /// Nothing if there is no such catalog or no such glossary.
  /// @throws platform::Failure if the result can't be written
  void WriteResult();

 private:
  /// A file that stands in for a catalog.
  struct StandIn {
    std::u16string catalog;
    std::u16string glossary;  ///< full path
  };

  [[nodiscard]] std::u16string DrawGlossary(const std::u16string& catalog);
  void RefuseAsResult(const std::u16string& reference) const;
  void AddReference(const Catalog& catalog);
  void SettleCounts() const;

  std::u16string result_;
  std::optional<Catalog> toDo_;
  std::vector<StandIn> standIns_;
  Reservations reservations_;
};

}  // namespace lexmill
