// SPDX-License-Identifier: MIT
// run: turns one press of the start command into a finished run.
// What the database shell complains of in the output of a batch, for lexmill-run to report.
#pragma once

#include <string>
#include <string_view>

namespace lexmill {

/// Looks for the first complaint of the database shell in the output of batches, which comes in
/// pieces. No stage looks at that output, so a load that failed would show in the result alone.
class ShellComplaint {
 public:
  /// Takes the next piece of the output.
  void Feed(std::string_view bytes);

  /// The line of the first complaint so far in UTF-8, without its end; empty if there is none.
  [[nodiscard]] std::string Text() const;

 private:
  void TakeLine();

  std::string line_;       ///< of the line that is being read, as much as a complaint needs
  std::string complaint_;  ///< in the system's code page
};

}  // namespace lexmill
