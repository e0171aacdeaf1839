// SPDX-License-Identifier: MIT
#include "platform/sqlite/table/row_changer.h"

#include <tuple>
#include <vector>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/tree/tree_cursor.h"
#include "platform/sqlite/tree/tree_editor.h"

namespace lexmill::platform::sqlite {
namespace {

std::string IndexKey(const Index& index, const ValueOf& value, RowId rowId) {
  std::string key;
  PutIndexKey(key, index, value, rowId);
  return key;
}

/// `column a is not unique`, `columns a, b are not unique`.
std::string NotUnique(const Table& table, const Index& index) {
  std::string names;
  for (const std::size_t column : index.columns) {
    names += (names.empty() ? "" : ", ") + table.columns[column].name;
  }
  return index.columns.size() == 1 ? "column " + names + " is not unique"
                                   : "columns " + names + " are not unique";
}

}  // namespace

RowChanger::RowChanger(Pager& pager, const Table& table)
    : pager_(pager), table_(table), rows_(pager, table.rootPage) {
  CheckIndexesKnown(table);
}

void RowChanger::Insert(RowId rowId, std::span<const Value> values) {
  std::ignore = ShapeOf(values);
  if (rows_.Seek(rowId)) {
    throw DatabaseError("PRIMARY KEY must be unique");
  }
  const ValueOf value = [values](std::size_t column) { return values[column]; };
  CheckUnique(value, rowId);
  for (const Index& index : table_.indexes) {
    TreeEditor(pager_, index.rootPage).Put(IndexKey(index, value, rowId), {});
  }
  PutRow(rowId, values);
}

void RowChanger::Update(RowId rowId, std::span<const Value> values) {
  std::ignore = ShapeOf(values);
  if (!rows_.Seek(rowId)) {
    return;
  }
  const ValueOf before = [this](std::size_t column) { return rows_.Record().Column(column); };
  const ValueOf after = [values](std::size_t column) { return values[column]; };
  CheckUnique(after, rowId);
  for (const Index& index : table_.indexes) {
    const std::string entry = IndexKey(index, before, rowId);
    const std::string renewed = IndexKey(index, after, rowId);
    if (entry != renewed) {
      RemoveEntry(index, entry);
      TreeEditor(pager_, index.rootPage).Put(renewed, {});
    }
  }
  PutRow(rowId, values);
}

void RowChanger::Delete(RowId rowId) {
  if (!rows_.Seek(rowId)) {
    return;
  }
  const ValueOf value = [this](std::size_t column) { return rows_.Record().Column(column); };
  for (const Index& index : table_.indexes) {
    RemoveEntry(index, IndexKey(index, value, rowId));
  }
  const RowKey key = ToRowKey(rowId);
  TreeEditor(pager_, table_.rootPage).Remove({key.data(), key.size()});
}

void RowChanger::PutRow(RowId rowId, std::span<const Value> values) {
  const RecordShape shape = ShapeOf(values);
  std::string record(shape.size, '\0');
  PutRecord(record.data(), shape, values);
  const RowKey key = ToRowKey(rowId);
  TreeEditor(pager_, table_.rootPage).Put({key.data(), key.size()}, record);
}

void RowChanger::CheckUnique(const ValueOf& value, RowId rowId) {
  for (const Index& index : table_.indexes) {
    const std::string entry = IndexKey(index, value, rowId);
    const std::string_view texts(entry.data(), entry.size() - RowKey{}.size());
    if (!index.isUnique || HasNull(texts)) {
      continue;
    }
    TreeCursor entries(pager_, index.rootPage);
    std::string buffer;
    if (entries.SeekAtLeast(texts) && entries.Payload(buffer).starts_with(texts) &&
        RowIdOfEntry(entries.Payload(buffer)) != rowId) {
      throw DatabaseError(NotUnique(table_, index));
    }
  }
}

void RowChanger::RemoveEntry(const Index& index, std::string_view entry) {
  if (!TreeEditor(pager_, index.rootPage).Remove(entry)) {
    throw DatabaseError(kMalformed);
  }
}

}  // namespace lexmill::platform::sqlite
