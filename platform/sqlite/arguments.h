// SPDX-License-Identifier: MIT
// platform/sqlite: the database shell. What its command line asks for.
#pragma once

#include <optional>
#include <span>
#include <string>

namespace lexmill::platform::sqlite {

/// How rows are printed.
enum class OutputForm {
  List,  ///< one row a line, values joined by the separator
  Line,  ///< one value a line behind its column's name
};

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
