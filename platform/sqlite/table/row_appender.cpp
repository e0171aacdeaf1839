// SPDX-License-Identifier: MIT
#include "platform/sqlite/table/row_appender.h"

#include <limits>

#include "platform/sqlite/table/index_filler.h"

namespace lexmill::platform::sqlite {

RowAppender::RowAppender(Pager& pager, const Table& table)
    : pager_(pager), table_(table), builder_(TreeBuilder::Appending(pager, table.rootPage)) {
  CheckIndexesKnown(table);
  for (std::size_t i = 0; i < table.indexes.size(); ++i) {
    entries_.push_back(
        std::make_unique<KeySorter>(pager.Path(), kIndexBuffer / table.indexes.size()));
  }
}

bool RowAppender::IsFull() const {
  return builder_.LastRowId() == std::numeric_limits<RowId>::max();
}

void RowAppender::Append(std::span<const Value> values) {
  const RowId rowId = builder_.LastRowId().value_or(0) + 1;
  builder_.AppendRow(rowId, values);
  const ValueOf value = [values](std::size_t column) { return values[column]; };
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    PutIndexKey(key_, table_.indexes[i], value, rowId);
    entries_[i]->Add({key_});
  }
}

void RowAppender::Finish() {
  builder_.Finish();
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    AddEntries(pager_, table_.indexes[i], *entries_[i]);
  }
}

}  // namespace lexmill::platform::sqlite
