// SPDX-License-Identifier: MIT
// platform/sqlite/table: What the parts of an open database share.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sqlite/file/file_access.h"
#include "platform/sqlite/file/pager.h"
#include "platform/sqlite/table/catalog.h"
#include "platform/sqlite/table/keyed_updates.h"
#include "platform/sqlite/table/row_appender.h"
#include "platform/sqlite/table/table.h"

namespace lexmill::platform::sqlite {

/// The state behind a Database: its transaction, its statement, and the work put off.
///
/// Appended rows and collected updates wait, as long as others of their kind may follow. Settle
/// brings them into the file; it stands in front of everything that might see the difference.
class Storage {
 public:
  explicit Storage(const std::string& path) : file_(path), catalog_(file_.Pages()) {}

  [[nodiscard]] Pager& Pages() { return file_.Pages(); }
  [[nodiscard]] Catalog& Objects() { return catalog_; }
  [[nodiscard]] bool InTransaction() const { return inTransaction_; }

  /// Do what Database tells of its functions of these names; so do Append and UpdateWhere.
  void Begin();
  void Commit();
  void Rollback();
  /// Rolls back without telling a failure: the journal then stays for the next opener.
  void Abandon() noexcept;

  /// Begins a statement: takes its lock, brings waiting changes into the file and sets the mark to
  /// which the statement can fall back.
  void EnterStatement(bool isWriting);
  /// Keeps what the statement did; outside a transaction this is its commit.
  void CompleteStatement();
  /// Takes back what a statement did that wasn't completed. @throws nothing: if that fails, all
  /// that is left is to roll back
  void LeaveStatement() noexcept;

  /// Brings waiting changes into the file.
  void Settle();
  [[nodiscard]] bool IsSettled() const { return !appender_ && !updates_; }

  RowId Append(const Table& table, std::span<const Value> values);
  void UpdateWhere(const Table& table, std::size_t keyColumn, std::size_t valueColumn,
                   std::string_view key, std::string_view value);

  /// `values` as they are stored: cut at NUL bytes, the row's number as NULL.
  [[nodiscard]] std::span<const Value> Clean(const Table& table, std::span<const Value> values);

 private:
  void StartWriting();
  void CheckCanWrite() const;
  void CheckSound() const;
  void PrepareToWait();
  /// Does work that no mark can take back: if it fails, only a rollback is left.
  template <class Work>
  auto Soundly(Work work);
  void DropWaiting();
  void ReportLate();
  void EndTransaction();
  [[nodiscard]] RowId DrawRowId(const Table& table);

  FileAccess file_;
  Catalog catalog_;
  std::unique_ptr<RowAppender> appender_;
  std::unique_ptr<KeyedUpdates> updates_;
  bool inTransaction_ = false;
  bool isStatementWriting_ = false;
  bool isStatementOwn_ = false;         ///< the statement is a transaction of its own
  std::optional<std::string> unsound_;  ///< why the transaction can only be rolled back
  std::optional<std::string> late_;     ///< a failure to be told with the next call
  std::vector<Value> values_;
};

}  // namespace lexmill::platform::sqlite
