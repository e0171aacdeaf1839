// SPDX-License-Identifier: MIT
// run/shared: what every room may read of a run.
// What a run has to say that no message box says.
#pragma once

#include <string>

namespace lexmill {

/// One sentence for the user, without a point at its end; for the window's line and for standard
/// error.
struct RunNotice {
  std::u16string text;
  bool isFailure = false;  ///< something that was asked for was not done; otherwise a hint

  bool operator==(const RunNotice&) const = default;
};

/// Adds a notice to those of the current run.
void NoteFailure(std::u16string text);
void NoteHint(std::u16string text);

}  // namespace lexmill
