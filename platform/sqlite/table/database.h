// SPDX-License-Identifier: MIT
// platform/sqlite/table: A database file of format 2.1: its objects, rows and transactions.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/file/file_access.h"
#include "platform/sqlite/table/catalog.h"
#include "platform/sqlite/table/keyed_updates.h"
#include "platform/sqlite/table/row_appender.h"
#include "platform/sqlite/table/table.h"

namespace lexmill::platform::sqlite {

/// An open database. Every function throws DatabaseError with the text that users know.
///
/// Rows and objects are read and written inside a Statement. One exception serves long scripts:
/// Append and UpdateWhere may be called without one while a transaction is open. Each of them
/// succeeds or changes nothing.
///
/// Ended without Commit, an open transaction leaves the file as it was, byte for byte.
class Database {
 public:
  /// Opens the file and creates it with size 0 if it is missing; so call it at the first statement.
  /// A journal that a dead process left is played back. The text of a failure is what the shell
  /// prints after `Unable to open database "DB": `.
  explicit Database(const std::string& path);
  ~Database();
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  /// BEGIN. Takes the write lock; nothing is begun if that fails. On a read-only file only the
  /// writing statements fail.
  void Begin();
  /// COMMIT. If writing fails, everything is rolled back. Without a transaction it fails with
  /// `cannot commit - no transaction is active`, or with kLocked while another process writes.
  void Commit();
  /// ROLLBACK. Without a transaction it fails likewise.
  void Rollback();
  [[nodiscard]] bool InTransaction() const { return inTransaction_; }

  /// All rows of the master table, in order.
  [[nodiscard]] const std::vector<CatalogObject>& Objects() { return catalog_.Objects(); }
  /// Looks for a table, without regard to case. The pointer is good while SchemaVersion() stays.
  /// @return null if there is none
  [[nodiscard]] const Table* FindTable(std::string_view name) { return catalog_.FindTable(name); }
  /// Changes whenever objects may have changed: by own statements, by the undoing of statements and
  /// by other processes. Ask inside a Statement or a transaction.
  [[nodiscard]] std::uint64_t SchemaVersion() { return catalog_.Version(); }

  /// Adds a table. `table R already exists` if the name is taken.
  /// @param sql  as typed, from its first letter to its last token; libsqlite3 has understood it,
  /// and
  ///   it asks for no unique key
  void CreateTable(std::string_view name, std::string_view sql);
  /// Adds an index with an entry for each row. Fails with `index irm already exists`,
  /// `no such table: Q`, and for columns that aren't text. `sql` as for CreateTable.
  void CreateIndex(std::string_view name, std::string_view table, std::string_view sql);

  /// Adds a row after the last. `values` has one value for each column; a text ends at its first
  /// NUL byte. Fails with kRowTooLong, and kFull after the greatest row number.
  /// @param table  without a unique key
  void Append(const Table& table, std::span<const Value> values);

  /// `UPDATE table SET valueColumn=value WHERE keyColumn=key` for scripts of many such statements:
  /// they are collected, on disk if need be, and made together before anything else is read
  /// or written, in one pass over the table. Of equal keys the last wins. A row that would become
  /// too long keeps its value, and the next Statement or Commit fails with kRowTooLong; Commit does
  /// its work all the same.
  /// Texts are cut at their first NUL byte.
  void UpdateWhere(const Table& table, std::size_t keyColumn, std::size_t valueColumn,
                   std::string_view key, std::string_view value);
  /// Whether UpdateWhere takes these two columns: both TEXT, different, the second in no index.
  [[nodiscard]] static bool CanUpdateWhere(const Table& table, std::size_t keyColumn,
                                           std::size_t valueColumn);

 private:
  friend class Statement;
  friend class TableCursor;
  friend class IndexCursor;

  void StartWriting();
  void EndTransaction();
  void CheckCanWrite() const;
  void CheckNotBroken() const;
  void ThrowPendingFailure();
  void CheckInTransaction(std::string_view failure);

  void PrepareToWait();
  /// Brings waiting changes into the file. Called before anything that might see the difference.
  void Settle();
  void DropWaiting();
  /// Does work that no mark can take back: if it fails, only a rollback is left.
  template <class Work>
  void Irrevocably(Work work);
  void AddObject(std::string_view type, std::string_view name, std::string_view table,
                 std::string_view sql);

  FileAccess file_;
  Catalog catalog_;
  std::unique_ptr<RowAppender> appender_;  ///< rows that wait
  std::unique_ptr<KeyedUpdates> updates_;  ///< updates that wait
  bool inTransaction_ = false;
  std::optional<DatabaseError> brokenBy_;        ///< why the transaction can only be rolled back
  std::optional<DatabaseError> pendingFailure_;  ///< to be reported by the next statement or Commit
  std::vector<Value> values_;                    ///< of the row to be added
};

/// The frame of one statement: locks while it lasts and takes back what it changed unless it is
/// completed. Outside a transaction a writing statement is a transaction of its own.
/// Not nested.
class Statement {
 public:
  enum class Access { Read, Write };

  Statement(Database& database, Access access);
  ~Statement();
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  /// Keeps the changes. All cursors have to be gone.
  void Complete();

 private:
  void Begin();
  void TakeBack();
  void Leave() noexcept;

  Database& database_;
  bool isWriting_ = false;  ///< has changes to keep or to take back
  bool isOwn_ = false;      ///< is a transaction of its own
};

}  // namespace lexmill::platform::sqlite
