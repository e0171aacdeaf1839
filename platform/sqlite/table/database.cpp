// SPDX-License-Identifier: MIT
#include "platform/sqlite/table/database.h"

#include <algorithm>
#include <tuple>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/table/row_changer.h"
#include "platform/sqlite/table/schema_changer.h"
#include "platform/sqlite/table/storage.h"

namespace lexmill::platform::sqlite {
namespace {

/// Changes objects of a storage in which nothing waits.
SchemaChanger ChangeSchema(Storage& storage) {
  storage.Settle();
  return {storage.Pages(), storage.Objects()};
}

/// Changes rows of a storage in which nothing waits.
RowChanger ChangeRows(Storage& storage, const Table& table) {
  storage.Settle();
  return {storage.Pages(), table};
}

}  // namespace

Database::Database(const std::string& path) : storage_(std::make_unique<Storage>(path)) {}

Database::~Database() {
  if (InTransaction()) {
    storage_->Abandon();
  }
}

void Database::Begin() {
  storage_->Begin();
}

void Database::Commit() {
  storage_->Commit();
}

void Database::Rollback() {
  storage_->Rollback();
}

bool Database::InTransaction() const {
  return storage_->InTransaction();
}

const std::vector<CatalogObject>& Database::Objects() {
  return storage_->Objects().Objects();
}

const Table* Database::FindTable(std::string_view name) {
  return storage_->Objects().FindTable(name);
}

std::uint64_t Database::SchemaVersion() {
  return storage_->Objects().Version();
}

void Database::CreateTable(std::string_view name, std::string_view sql) {
  ChangeSchema(*storage_).CreateTable(name, sql);
}

void Database::CreateIndex(std::string_view name, std::string_view table, std::string_view sql) {
  ChangeSchema(*storage_).CreateIndex(name, table, sql);
}

void Database::CreateOther(std::string_view type, std::string_view name, std::string_view table,
                           std::string_view sql) {
  ChangeSchema(*storage_).CreateOther(type, name, table, sql);
}

void Database::DropTable(std::string_view name) {
  ChangeSchema(*storage_).DropTable(name);
}

void Database::DropIndex(std::string_view name) {
  ChangeSchema(*storage_).Drop("index", name);
}

void Database::DropOther(std::string_view type, std::string_view name) {
  ChangeSchema(*storage_).Drop(type, name);
}

RowId Database::Append(const Table& table, std::span<const Value> values) {
  return storage_->Append(table, values);
}

void Database::Insert(const Table& table, RowId rowId, std::span<const Value> values) {
  ChangeRows(*storage_, table).Insert(rowId, storage_->Clean(table, values));
}

void Database::Update(const Table& table, RowId rowId, std::span<const Value> values) {
  ChangeRows(*storage_, table).Update(rowId, storage_->Clean(table, values));
}

void Database::Delete(const Table& table, RowId rowId) {
  ChangeRows(*storage_, table).Delete(rowId);
}

void Database::UpdateWhere(const Table& table, std::size_t keyColumn, std::size_t valueColumn,
                           std::string_view key, std::string_view value) {
  storage_->UpdateWhere(table, keyColumn, valueColumn, key, value);
}

bool Database::CanUpdateWhere(const Table& table, std::size_t keyColumn, std::size_t valueColumn) {
  const bool isIndexed = std::ranges::any_of(table.indexes, [valueColumn](const Index& index) {
    // An index without columns is one that isn't understood.
    return index.columns.empty() || std::ranges::count(index.columns, valueColumn) != 0;
  });
  return keyColumn != valueColumn && !isIndexed && table.columns[keyColumn].isText &&
         table.columns[valueColumn].isText;
}

Statement::Statement(Database& database, Access access) : database_(database) {
  database_.storage_->EnterStatement(access == Access::Write);
}

Statement::~Statement() {
  database_.storage_->LeaveStatement();
}

void Statement::Complete() {
  database_.storage_->CompleteStatement();
}

}  // namespace lexmill::platform::sqlite
