// SPDX-License-Identifier: MIT

// The master table is read as a whole when somebody asks and something may have changed since:
// objects are few. Whether it has really changed is found by comparing, not by the cookie in the
// head, which an undone statement may leave as it was. Only a real change gives a new version and
// makes what was described stale, so that tables found stay good through a script of INSERTs.

#include "platform/sqlite/table/catalog.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <utility>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/file/file_head.h"
#include "platform/sqlite/table/schema_reader.h"
#include "platform/sqlite/table/table_cursor.h"
#include "platform/sqlite/tree/tree_builder.h"

namespace lexmill::platform::sqlite {
namespace {

enum MasterColumn : std::size_t { kType, kName, kTableName, kRootPage, kSql, kMasterColumns };

std::string TextOf(const RecordView& record, std::size_t column) {
  return std::string(record.Column(column).value_or(""));
}

CatalogObject ToObject(const RecordView& record) {
  CatalogObject object;
  object.type = TextOf(record, kType);
  object.name = TextOf(record, kName);
  object.tableName = TextOf(record, kTableName);
  if (const Value sql = record.Column(kSql)) {
    object.sql = *sql;
  }
  // No number is no page: whoever reads it finds the damage.
  const std::string root = TextOf(record, kRootPage);
  std::from_chars(root.data(), root.data() + root.size(), object.rootPage);
  return object;
}

std::vector<CatalogObject> ReadObjects(Pager& pager) {
  std::vector<CatalogObject> objects;
  if (pager.Count() == 0) {
    return objects;
  }
  for (TableCursor rows(pager, kMasterRoot); rows.Next();) {
    objects.push_back(ToObject(rows.Record()));
  }
  return objects;
}

}  // namespace

const std::vector<CatalogObject>& Catalog::Objects() {
  BringUpToDate();
  return objects_;
}

const Table* Catalog::FindTable(std::string_view name) {
  BringUpToDate();
  for (const auto& table : tables_) {
    if (SameName(table->name, name)) {
      return table.get();
    }
  }
  const auto object = std::ranges::find_if(objects_, [name](const CatalogObject& one) {
    return one.type == "table" && SameName(one.name, name);
  });
  if (object == objects_.end()) {
    return nullptr;
  }
  if (object->rootPage <= kMasterRoot) {
    throw DatabaseError(kMalformed);
  }
  tables_.push_back(std::make_unique<Table>(DescribeTable(*object, objects_, isPresentFormat_)));
  return tables_.back().get();
}

std::uint64_t Catalog::Version() {
  BringUpToDate();
  return version_;
}

void Catalog::BringUpToDate() {
  if (isCurrent_) {
    return;
  }
  std::vector<CatalogObject> objects = ReadObjects(pager_);
  const std::uint32_t format = FileFormat(pager_);
  const bool isPresentFormat = format == 0 || format == kPresentFormat;
  if (version_ == 0 || objects != objects_ || isPresentFormat != isPresentFormat_) {
    objects_ = std::move(objects);
    isPresentFormat_ = isPresentFormat;
    tables_.clear();
    ++version_;
  }
  isCurrent_ = true;
}

void Catalog::Add(const CatalogObject& object) {
  const std::string root = std::to_string(object.rootPage);
  std::array<Value, kMasterColumns> values;
  values[kType] = object.type;
  values[kName] = object.name;
  values[kTableName] = object.tableName;
  values[kRootPage] = root;
  values[kSql] = object.sql;
  TreeBuilder builder = TreeBuilder::Appending(pager_, kMasterRoot);
  builder.AppendRow(builder.LastRowId().value_or(0) + 1, values);
  builder.Finish();
  NoteSchemaChange(pager_);
  Invalidate();
}

}  // namespace lexmill::platform::sqlite
