// SPDX-License-Identifier: MIT

// Rows and updates that wait. A script adds its rows one statement after the other; brought in each
// by itself, every one would go down the table's tree and down the tree of its index, to a page far
// from the last. So rows go into the open last page of the table and their index entries into a
// sorter, and updates into another, as long as calls of the same kind for the same table follow.
// Only one of `appender_` and `updates_` is there at a time. Settle is called before anything that
// might see the difference: a statement, a commit, a call of the other kind.

#include <algorithm>
#include <limits>
#include <random>
#include <tuple>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/table/database.h"
#include "platform/sqlite/table/row_changer.h"

namespace lexmill::platform::sqlite {

template <class Work>
auto Database::Irrevocably(Work work) {
  try {
    return work();
  } catch (const DatabaseError& error) {
    brokenBy_ = error;
    throw;
  }
}

RowId Database::Append(const Table& table, std::span<const Value> values) {
  const std::span<const Value> clean = Clean(table, values);
  std::ignore = ShapeOf(clean);  // a row that is too long changes nothing
  if (!appender_ || !appender_->IsFor(table)) {
    PrepareToWait();
    if (RowAppender::Serves(table)) {
      appender_ = std::make_unique<RowAppender>(file_.Pages(), table);
    }
  }
  if (appender_ && appender_->HasNumber()) {
    return Irrevocably([&] { return appender_->Append(clean); });
  }
  Settle();
  const RowId rowId = DrawRowId(table);
  RowChanger(file_.Pages(), table).Insert(rowId, clean);
  return rowId;
}

void Database::UpdateWhere(const Table& table, std::size_t keyColumn, std::size_t valueColumn,
                           std::string_view key, std::string_view value) {
  if (!updates_ || !updates_->IsFor(table, keyColumn, valueColumn)) {
    PrepareToWait();
    updates_ = std::make_unique<KeyedUpdates>(file_.Pages(), table, keyColumn, valueColumn);
  }
  Irrevocably(
      [&] { updates_->Add(key.substr(0, key.find('\0')), value.substr(0, value.find('\0'))); });
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

/// The values as they are kept: texts end at their first NUL, a row number is no text.
std::span<const Value> Database::Clean(const Table& table, std::span<const Value> values) {
  const auto holdsNul = [](const Value& value) {
    return value && value->find('\0') != std::string_view::npos;
  };
  if (!table.rowIdColumn && std::ranges::none_of(values, holdsNul)) {
    return values;
  }
  values_.clear();
  for (const Value& value : values) {
    values_.push_back(value ? Value(value->substr(0, value->find('\0'))) : value);
  }
  if (table.rowIdColumn) {
    values_[*table.rowIdColumn].reset();
  }
  return values_;
}

RowId Database::DrawRowId(const Table& table) {
  RowCursor rows(file_.Pages(), table.rootPage);
  TreeBuilder last = TreeBuilder::Behind(file_.Pages(), table.rootPage);
  constexpr RowId kGreatest = std::numeric_limits<RowId>::max();
  if (last.LastRowId().value_or(0) != kGreatest) {
    return last.LastRowId().value_or(0) + 1;
  }
  std::random_device random;
  std::uniform_int_distribution<RowId> numbers(1, kGreatest);
  constexpr int kAttempts = 1000;
  for (int i = 0; i < kAttempts; ++i) {
    const RowId rowId = numbers(random);
    if (!rows.Seek(rowId)) {
      return rowId;
    }
  }
  throw DatabaseError(kFull);
}

}  // namespace lexmill::platform::sqlite
