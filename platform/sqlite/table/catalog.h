// SPDX-License-Identifier: MIT
// platform/sqlite/table: the master table.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/sqlite/file/pager.h"
#include "platform/sqlite/table/table.h"

namespace lexmill::platform::sqlite {

/// The objects of a file, read when they are asked for.
class Catalog {
 public:
  explicit Catalog(Pager& pager) : pager_(pager) {}

  /// Lets the next question read the master table again.
  void Invalidate() { isCurrent_ = false; }

  /// All rows of the master table, in order; good while Version() stays.
  [[nodiscard]] const std::vector<CatalogObject>& Objects();
  /// @return null if there is no such table; else good while Version() stays
  [[nodiscard]] const Table* FindTable(std::string_view name);
  /// Changes with the objects and with the file's format.
  [[nodiscard]] std::uint64_t Version();

  /// Adds a row to the master table.
  void Add(const CatalogObject& object);

 private:
  void BringUpToDate();

  Pager& pager_;
  bool isCurrent_ = false;
  bool isPresentFormat_ = true;
  std::uint64_t version_ = 0;
  std::vector<CatalogObject> objects_;
  std::vector<std::unique_ptr<Table>> tables_;
};

}  // namespace lexmill::platform::sqlite
