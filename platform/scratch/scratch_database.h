// SPDX-License-Identifier: MIT
// platform/scratch: rows that a program sorts and groups for a while, more than memory should hold.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace lexmill::platform {

/// A private database in a temporary file of the host's, gone with this object. A few megabytes of
/// it are in memory at a time.
class ScratchDatabase {
 public:
  /// @throws Failure OutOfMemory, DiskFull, DeviceError; so do all members here and below
  ScratchDatabase();

  /// Runs one or more statements that give no rows and take no values.
  void Execute(const char* sql);

 private:
  friend class ScratchStatement;
  struct Closer {
    void operator()(sqlite3* database) const;
  };
  std::unique_ptr<sqlite3, Closer> database_;
};

/// One statement of a scratch database, which has to outlive it. Values and columns are counted as
/// the library counts them: values from 1, columns from 0.
class ScratchStatement {
 public:
  ScratchStatement(const ScratchDatabase& database, std::string_view sql);

  /// Set a value for the next run. A text is kept unit by unit, whatever the units are; it compares
  /// by its bytes.
  void Bind(int value, std::int64_t number);
  void Bind(int value, std::u16string_view text);
  /// Goes to the next row, from the start after the last one.
  /// @return false if there is none
  bool Step();
  /// Runs the statement, which gives no rows.
  void Run();
  /// Of the current row.
  [[nodiscard]] std::int64_t Number(int column) const;
  [[nodiscard]] std::u16string Text(int column) const;

 private:
  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const;
  };
  std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
};

}  // namespace lexmill::platform
