// SPDX-License-Identifier: MIT
#include "platform/sqlite/table/storage.h"

#include <algorithm>
#include <limits>
#include <random>
#include <tuple>
#include <utility>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/file/file_head.h"
#include "platform/sqlite/table/format_upgrade.h"
#include "platform/sqlite/table/row_changer.h"
#include "platform/sqlite/table/row_cursor.h"

namespace lexmill::platform::sqlite {

template <class Work>
auto Storage::Soundly(Work work) {
  try {
    return work();
  } catch (const DatabaseError& error) {
    unsound_ = error.Text();
    throw;
  }
}

void Storage::Begin() {
  if (inTransaction_) {
    throw DatabaseError("cannot start a transaction within a transaction");
  }
  file_.Enter();
  catalog_.Invalidate();
  if (file_.CanWrite()) {
    try {
      StartWriting();
    } catch (const DatabaseError&) {
      file_.Leave();
      throw;
    }
  }
  inTransaction_ = true;
}

void Storage::StartWriting() {
  file_.BeginWriting();
  try {
    UpgradeFormat(Pages(), catalog_);
  } catch (const DatabaseError&) {
    file_.Rollback();
    throw;
  }
}

void Storage::Commit() {
  if (!inTransaction_) {
    throw DatabaseError("cannot commit - no transaction is active");
  }
  try {
    Settle();
    CheckSound();
  } catch (const DatabaseError&) {
    Rollback();
    throw;
  }
  EndTransaction();
  if (Pages().IsWriting()) {
    try {
      file_.Commit();
    } catch (const DatabaseError&) {
      file_.Leave();
      throw;
    }
  }
  file_.Leave();
  ReportLate();
}

void Storage::Rollback() {
  if (!inTransaction_) {
    throw DatabaseError("cannot rollback - no transaction is active");
  }
  EndTransaction();
  late_.reset();
  if (Pages().IsWriting()) {
    file_.Rollback();
  }
  file_.Leave();
}

void Storage::Abandon() noexcept {
  try {
    Rollback();
  } catch (const DatabaseError&) {
    // Whoever opens the file next finds the journal and undoes the rest.
  }
}

void Storage::EndTransaction() {
  DropWaiting();
  unsound_.reset();
  inTransaction_ = false;
  catalog_.Invalidate();
}

void Storage::EnterStatement(bool isWriting) {
  ReportLate();
  CheckSound();
  isStatementWriting_ = false;
  isStatementOwn_ = false;
  if (!inTransaction_) {
    file_.Enter();
    catalog_.Invalidate();
  }
  try {
    Settle();
    if (isWriting) {
      CheckCanWrite();
      if (inTransaction_) {
        Pages().Mark();
      } else {
        StartWriting();
        isStatementOwn_ = true;
      }
      isStatementWriting_ = true;
    }
  } catch (const DatabaseError&) {
    LeaveStatement();
    throw;
  }
}

void Storage::CompleteStatement() {
  if (!isStatementWriting_) {
    return;
  }
  Settle();
  isStatementWriting_ = false;
  if (isStatementOwn_) {
    EndTransaction();
    file_.Commit();
  } else {
    Pages().Unmark();
  }
}

void Storage::LeaveStatement() noexcept {
  try {
    if (isStatementWriting_) {
      DropWaiting();
      catalog_.Invalidate();
      isStatementWriting_ = false;
      if (isStatementOwn_) {
        file_.Rollback();
      } else {
        Pages().BackToMark();
      }
      unsound_.reset();
    }
    if (!inTransaction_) {
      file_.Leave();
    }
  } catch (const DatabaseError& error) {
    unsound_ = error.Text();
  }
}

void Storage::Settle() {
  if (IsSettled()) {
    return;
  }
  const std::unique_ptr<RowAppender> appender = std::move(appender_);
  const std::unique_ptr<KeyedUpdates> updates = std::move(updates_);
  Soundly([&] {
    if (appender) {
      appender->Finish();
    }
    if (updates && !updates->Apply()) {
      late_ = kRowTooLong;
    }
  });
}

RowId Storage::Append(const Table& table, std::span<const Value> values) {
  const std::span<const Value> clean = Clean(table, values);
  std::ignore = ShapeOf(clean);
  if (!appender_ || !appender_->IsFor(table)) {
    PrepareToWait();
    if (RowAppender::Serves(table)) {
      appender_ = std::make_unique<RowAppender>(Pages(), table);
    }
  }
  if (appender_ && appender_->HasNumber()) {
    return Soundly([&] { return appender_->Append(clean); });
  }
  Settle();
  const RowId rowId = DrawRowId(table);
  RowChanger(Pages(), table).Insert(rowId, clean);
  return rowId;
}

void Storage::UpdateWhere(const Table& table, std::size_t keyColumn, std::size_t valueColumn,
                          std::string_view key, std::string_view value) {
  if (!updates_ || !updates_->IsFor(table, keyColumn, valueColumn)) {
    PrepareToWait();
    updates_ = std::make_unique<KeyedUpdates>(Pages(), table, keyColumn, valueColumn);
  }
  Soundly([&] { updates_->Add(key.substr(0, key.find('\0')), value.substr(0, value.find('\0'))); });
}

void Storage::PrepareToWait() {
  ReportLate();
  CheckSound();
  CheckCanWrite();
  Settle();
}

/// The values as they are kept: texts end at their first NUL, a row number is no text.
std::span<const Value> Storage::Clean(const Table& table, std::span<const Value> values) {
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

void Storage::CheckSound() const {
  if (unsound_) {
    throw DatabaseError(*unsound_);
  }
}

void Storage::CheckCanWrite() const {
  if (!file_.CanWrite()) {
    throw DatabaseError(kReadOnly);
  }
}

void Storage::DropWaiting() {
  appender_.reset();
  updates_.reset();
}

void Storage::ReportLate() {
  if (late_) {
    throw DatabaseError(*std::exchange(late_, std::nullopt));
  }
}

RowId Storage::DrawRowId(const Table& table) {
  RowCursor rows(Pages(), table.rootPage);
  TreeBuilder last = TreeBuilder::Behind(Pages(), table.rootPage);
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
