// SPDX-License-Identifier: MIT
// tests/sqlite: the shell in a folder of its own, with streams in memory.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/files.h"

namespace lexmill::platform::sqlite {

struct ShellOutcome {
  std::string output;
  std::string error;
  int code = 0;

  friend bool operator==(const ShellOutcome&, const ShellOutcome&) = default;
};

/// So that a failed comparison shows all three.
void PrintTo(const ShellOutcome& outcome, std::ostream* stream);

/// A folder with the database `w.db`.
class ShellWorld {
 public:
  /// Runs the shell with `words` after the program's name, `sqlite`. An empty word stands for the
  /// database; the folder's path is taken out of the error stream again, as `DIR`.
  [[nodiscard]] ShellOutcome Run(std::vector<std::string> words,
                                 std::string_view script = {}) const;

  /// What a script, or a statement of the command line, on the database prints. Line ends are LF
  /// here: CR LF is told by one test.
  [[nodiscard]] std::string Script(std::string_view script) const;
  [[nodiscard]] std::string Select(std::string_view statement) const;

  [[nodiscard]] std::string DatabasePath() const { return (folder_.Path() / "w.db").string(); }
  [[nodiscard]] const test::TemporaryFolder& Folder() const { return folder_; }

 private:
  test::TemporaryFolder folder_;
};

}  // namespace lexmill::platform::sqlite
