// SPDX-License-Identifier: MIT
// platform/sqlite/shell: A script, read in batches of statements.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/sqlite/sql/plain_statement.h"
#include "platform/sqlite/sql/statement_scanner.h"
#include "platform/sqlite/streams.h"

namespace lexmill::platform::sqlite {

/// A part of a script that runs as a whole.
struct ScriptBatch {
  enum class Kind {
    Statements,
    Command,     ///< a line with a point in front: meant for the shell, not for the database
    Incomplete,  ///< the script ends inside a statement
  };

  Kind kind;
  std::string_view text;                ///< lines as they came, the last one's end included
  const PlainInsert* insert = nullptr;  ///< what the text says, if it is one such statement
};

/// Reads a script line by line through a buffer that only a long batch makes larger. Lines are
/// collected until one ends with the semicolon of a statement; blanks after it do not count. A
/// line `go` or `/` alone means a semicolon. Blank lines and lines of comments between batches
/// are passed over. Most lines are plain INSERTs: those are read once, into their values.
class ScriptReader {
 public:
  /// @param read  has to outlive this object
  explicit ScriptReader(const ReadFunction& read);

  /// The next batch; none at the end. What it holds is valid until the next call.
  /// @throws StreamFailure if the script can't be read on
  [[nodiscard]] std::optional<ScriptBatch> Next();

 private:
  [[nodiscard]] bool FindLine();
  [[nodiscard]] bool Fill();
  [[nodiscard]] std::string_view Line() const { return Text(line_, lineEnd_); }
  [[nodiscard]] std::string_view Text(std::size_t from, std::size_t to) const {
    return std::string_view(buffer_).substr(from, to - from);
  }
  void ReplaceTerminator();
  [[nodiscard]] bool LineIsPlainInsert();
  [[nodiscard]] bool LineEndsBatch();

  const ReadFunction& read_;
  std::string buffer_;
  StatementScanner scanner_;
  PlainInsert insert_;
  // Positions in the buffer, in rising order. Between calls the batch's end is the line's end.
  std::size_t batch_ = 0;    ///< start of what is collected
  std::size_t line_ = 0;     ///< start of the line
  std::size_t lineEnd_ = 0;  ///< after the line
  std::size_t filled_ = 0;   ///< after the last byte read
};

}  // namespace lexmill::platform::sqlite
