// SPDX-License-Identifier: MIT
// platform/sqlite/sql: how rows look.
#pragma once

#include <span>
#include <string>

#include "platform/sqlite/streams.h"
#include "platform/sqlite/table/table.h"

namespace lexmill::platform::sqlite {

/// How rows are printed.
enum class OutputForm {
  List,  ///< one row a line, values joined by the separator
  Line,  ///< one value a line after its column's name
};

/// Prints rows in one of the two forms. NULL is printed as nothing.
class RowOutput {
 public:
  /// @param buffer  has to outlive this object
  RowOutput(OutputBuffer& buffer, OutputForm form, std::string separator);

  /// The next row is the first of its batch: no empty line goes before it.
  void BeginBatch() { isFirstRow_ = true; }

  /// Prints a row. `names` are the columns' names, as many as there are values.
  /// @throws StreamFailure
  void Print(std::span<const std::string> names, std::span<const Value> values);

 private:
  void PrintLines(std::span<const std::string> names, std::span<const Value> values);

  OutputBuffer& buffer_;
  OutputForm form_;
  std::string separator_;
  bool isFirstRow_ = true;
};

}  // namespace lexmill::platform::sqlite
