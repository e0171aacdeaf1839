// SPDX-License-Identifier: MIT
// platform/sqlite/shell: what its command line asks for.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "platform/sqlite/sql/row_output.h"

namespace lexmill::platform::sqlite {

/// A command line that was understood.
struct ShellArguments {
  OutputForm form = OutputForm::List;
  std::string separator = "|";           ///< bytes as they came, cut to 19; may be empty
  std::string database;                  ///< path as the host takes it
  std::optional<std::string> statement;  ///< none: a script comes from standard input
};

/// Either arguments, or the text that says what is wrong with them.
struct ParsedArguments {
  std::optional<ShellArguments> arguments;
  std::string complaint;  ///< whole lines, each ended by LF
};

/// Reads a command line: options, the database, then perhaps a statement. What follows is ignored.
/// @param words  all words, the program's own name first
[[nodiscard]] ParsedArguments ParseArguments(std::span<const std::string> words);

}  // namespace lexmill::platform::sqlite
