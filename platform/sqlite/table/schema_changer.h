// SPDX-License-Identifier: MIT
// platform/sqlite/table: Creating and dropping objects.
#pragma once

#include <string_view>

#include "platform/sqlite/file/pager.h"
#include "platform/sqlite/table/catalog.h"

namespace lexmill::platform::sqlite {

/// Changes the master table and the trees that it names. The texts of failures are those that
/// Database tells.
class SchemaChanger {
 public:
  SchemaChanger(Pager& pager, Catalog& catalog) : pager_(pager), catalog_(catalog) {}

  /// Do what Database tells of its functions of these names.
  void CreateTable(std::string_view name, std::string_view sql);
  void CreateIndex(std::string_view name, std::string_view table, std::string_view sql);
  void CreateOther(std::string_view type, std::string_view name, std::string_view table,
                   std::string_view sql);
  void DropTable(std::string_view name);
  /// Removes an object of any other type.
  void Drop(std::string_view type, std::string_view name);

 private:
  void CheckNameIsFree(std::string_view type, std::string_view name);
  [[nodiscard]] PageNumber NewTree();
  void Remove(const CatalogObject& object);

  Pager& pager_;
  Catalog& catalog_;
};

}  // namespace lexmill::platform::sqlite
