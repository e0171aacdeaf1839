// SPDX-License-Identifier: MIT

// Rows and updates that wait. A script adds its rows one statement after the other; brought in each
// by itself, every one would go down the table's tree and down the tree of its index, to a page far
// from the last. So rows go into the open last page of the table and their index entries into a
// sorter, and updates into another, as long as calls of the same kind for the same table follow.
// Only one of `appender_` and `updates_` is there at a time. Settle is called before anything that
// might see the difference: a statement, a commit, a call of the other kind.

#include <algorithm>
#include <tuple>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/table/database.h"

namespace lexmill::platform::sqlite {
namespace {

std::string_view CutAtNul(std::string_view text) {
  return text.substr(0, text.find('\0'));
}

}  // namespace

template <class Work>
void Database::Irrevocably(Work work) {
  try {
    work();
  } catch (const DatabaseError& error) {
    brokenBy_ = error;
    DropWaiting();  // so that the next call asks whether there is sense in going on
    throw;
  }
}

void Database::Append(const Table& table, std::span<const Value> values) {
  values_.clear();
  for (const Value& value : values) {
    values_.push_back(value ? Value(CutAtNul(*value)) : value);
  }
  std::ignore = ShapeOf(values_);  // a row that is too long changes nothing
  if (!appender_ || !appender_->IsFor(table)) {
    PrepareToWait();
    appender_ = std::make_unique<RowAppender>(file_.Pages(), table);
  }
  if (appender_->IsFull()) {
    throw DatabaseError(kFull);
  }
  Irrevocably([&] { appender_->Append(values_); });
}

void Database::UpdateWhere(const Table& table, std::size_t keyColumn, std::size_t valueColumn,
                           std::string_view key, std::string_view value) {
  if (!updates_ || !updates_->IsFor(table, keyColumn, valueColumn)) {
    PrepareToWait();
    updates_ = std::make_unique<KeyedUpdates>(file_.Pages(), table, keyColumn, valueColumn);
  }
  Irrevocably([&] { updates_->Add(CutAtNul(key), CutAtNul(value)); });
}

bool Database::CanUpdateWhere(const Table& table, std::size_t keyColumn, std::size_t valueColumn) {
  const bool isIndexed = std::ranges::any_of(table.indexes, [valueColumn](const Index& index) {
    // An index without columns is one that isn't understood.
    return index.columns.empty() || std::ranges::count(index.columns, valueColumn) != 0;
  });
  return keyColumn != valueColumn && !isIndexed && table.columns[keyColumn].isText &&
         table.columns[valueColumn].isText;
}

void Database::PrepareToWait() {
  CheckNotBroken();
  CheckCanWrite();
  Settle();
}

void Database::Settle() {
  // Moved out first: what fails is gone, and isn't tried again.
  const std::unique_ptr<RowAppender> appender = std::move(appender_);
  const std::unique_ptr<KeyedUpdates> updates = std::move(updates_);
  Irrevocably([&] {
    if (appender) {
      appender->Finish();
    }
    if (updates && !updates->Apply()) {
      pendingFailure_.emplace(kRowTooLong);
    }
  });
}

void Database::DropWaiting() {
  appender_.reset();
  updates_.reset();
}

}  // namespace lexmill::platform::sqlite
