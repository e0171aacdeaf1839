// SPDX-License-Identifier: MIT
#include "platform/sqlite/table/format_upgrade.h"

#include "platform/sqlite/file/file_head.h"
#include "platform/sqlite/table/index_filler.h"
#include "platform/sqlite/table/schema_reader.h"
#include "platform/sqlite/tree/tree_removal.h"

namespace lexmill::platform::sqlite {
namespace {

void MakeAnew(Pager& pager, const Table& table, const Index& index) {
  FreeTreeBelow(pager, index.rootPage, Overflow::Freed);
  PutEmptyTree(pager.Edit(index.rootPage).bytes, pager.Order());
  KeySorter entries(pager.Path(), kIndexBuffer);
  CollectEntries(pager, table, index, entries);
  AddEntries(pager, index, entries);
}

}  // namespace

void UpgradeFormat(Pager& pager, Catalog& catalog) {
  const std::uint32_t format = FileFormat(pager);
  if (format == 0 || format == kPresentFormat) {
    return;
  }
  for (const CatalogObject& object : catalog.Objects()) {
    if (object.type != "table") {
      continue;
    }
    const Table* table = catalog.FindTable(object.name);
    for (const Index& index : table->indexes) {
      if (CanBeKept(*table, index)) {
        MakeAnew(pager, *table, index);
      }
    }
  }
  NoteSchemaChange(pager);
  catalog.Invalidate();
}

}  // namespace lexmill::platform::sqlite
