// SPDX-License-Identifier: MIT
// platform/batch: the interpreter of batch scripts.
// One line of a script, read into its command and its redirections.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lexmill::platform::batch {

/// A file that takes the place of a standard stream.
struct Redirection {
  bool isInput;         ///< `<`; otherwise `>`
  std::u16string path;  ///< without its quotes
};

/// A line of a script. Inside double quotes every character is plain; outside them only blanks,
/// `<`, `>` and an `@` at the beginning have a meaning.
struct BatchLine {
  bool isSilent = false;    ///< begins with '@': never shown before it runs
  bool isComplete = true;   ///< false if a redirection lacks its path
  std::u16string name;      ///< of the command, as written, quotes included; empty if there is none
  std::u16string argument;  ///< all after the name, with its blanks and quotes
  std::vector<Redirection> redirections;  ///< in the order of the line
};

/// Reads a line. The name ends at a blank; that of `echo` also at a point.
[[nodiscard]] BatchLine ReadBatchLine(std::u16string_view line);

}  // namespace lexmill::platform::batch
