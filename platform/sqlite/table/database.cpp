// SPDX-License-Identifier: MIT
#include "platform/sqlite/table/database.h"

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/table/row_changer.h"
#include "platform/sqlite/table/schema_changer.h"

namespace lexmill::platform::sqlite {

Database::Database(const std::string& path) : file_(path), catalog_(file_.Pages()) {}

Database::~Database() {
  if (!inTransaction_) {
    return;
  }
  try {
    Rollback();
  } catch (const DatabaseError&) {
    // Whoever opens the file next finds the journal and undoes the rest.
  }
}

void Database::CreateTable(std::string_view name, std::string_view sql) {
  Settle();
  SchemaChanger(file_.Pages(), catalog_).CreateTable(name, sql);
}

void Database::CreateIndex(std::string_view name, std::string_view table, std::string_view sql) {
  Settle();
  SchemaChanger(file_.Pages(), catalog_).CreateIndex(name, table, sql);
}

void Database::CreateOther(std::string_view type, std::string_view name, std::string_view table,
                           std::string_view sql) {
  Settle();
  SchemaChanger(file_.Pages(), catalog_).CreateOther(type, name, table, sql);
}

void Database::DropTable(std::string_view name) {
  Settle();
  SchemaChanger(file_.Pages(), catalog_).DropTable(name);
}

void Database::DropIndex(std::string_view name) {
  DropOther("index", name);
}

void Database::DropOther(std::string_view type, std::string_view name) {
  Settle();
  SchemaChanger(file_.Pages(), catalog_).Drop(type, name);
}

void Database::Insert(const Table& table, RowId rowId, std::span<const Value> values) {
  Settle();
  RowChanger(file_.Pages(), table).Insert(rowId, Clean(table, values));
}

void Database::Update(const Table& table, RowId rowId, std::span<const Value> values) {
  Settle();
  RowChanger(file_.Pages(), table).Update(rowId, Clean(table, values));
}

void Database::Delete(const Table& table, RowId rowId) {
  Settle();
  RowChanger(file_.Pages(), table).Delete(rowId);
}

}  // namespace lexmill::platform::sqlite
