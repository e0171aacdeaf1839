// SPDX-License-Identifier: MIT
// tests/sqlite: short ways to make, change and look at a database in a fresh folder.
#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "platform/sqlite/table/database.h"
#include "tests/sqlite/file_checker.h"
#include "tests/support/files.h"

namespace lexmill::test {

/// A test with a folder in which `path_` names the database.
class DatabaseTest : public testing::Test {
 protected:
  using Work = std::function<void(platform::sqlite::Database&)>;

  /// The text of the DatabaseError that `work` ends with; "" if it ends well.
  [[nodiscard]] static std::string ErrorOf(const std::function<void()>& work);
  /// Opens the database and does `work` in a transaction.
  void Change(const Work& work) const;
  /// Does `statement` as a writing statement.
  static void Write(platform::sqlite::Database& database, const std::function<void()>& statement);
  /// Makes the table `CREATE TABLE R(r1 TEXT,r2 TEXT)`, with its index irm or without.
  static void MakeR(platform::sqlite::Database& database, bool hasIndex);
  [[nodiscard]] static const platform::sqlite::Table& TableOf(platform::sqlite::Database& database,
                                                              std::string_view name);
  static void Append(platform::sqlite::Database& database, std::string_view table,
                     std::initializer_list<std::string_view> texts);
  /// All rows of a table, columns joined by TAB, NULL as "NULL".
  [[nodiscard]] static std::vector<std::string> Rows(platform::sqlite::Database& database,
                                                     std::string_view table);
  /// Numbers of the rows whose first column is `text`, by the index on it; inside a statement.
  [[nodiscard]] static std::vector<platform::sqlite::RowId> Search(
      platform::sqlite::Database& database, const platform::sqlite::Table& table,
      std::string_view text);
  [[nodiscard]] std::string Bytes(std::string_view name = "t.db") const;
  void PutBytes(std::string_view bytes, std::string_view name = "t.db") const;
  /// What is wrong with the file, by the checker.
  [[nodiscard]] std::string Findings() const { return CheckFile(Bytes()).findings; }

  TemporaryFolder folder_;
  std::string path_ = (folder_.Path() / "t.db").string();
};

}  // namespace lexmill::test
