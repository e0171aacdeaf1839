// SPDX-License-Identifier: MIT
#include "tests/sqlite/foreign_object.h"

#include "platform/sqlite/file/file_access.h"
#include "platform/sqlite/table/catalog.h"

namespace lexmill::test {

void AddForeign(const std::string& path, const platform::sqlite::CatalogObject& object) {
  platform::sqlite::FileAccess file(path);
  file.Enter();
  file.BeginWriting();
  platform::sqlite::Catalog(file.Pages()).Add(object);
  file.Commit();
}

}  // namespace lexmill::test
