// SPDX-License-Identifier: MIT
// platform/controls: stands in for the desktop system; knows nothing of dictionaries.
// The program's end when others than its user ask for it: a signal, the end of the desktop session.
#pragma once

#include <functional>

#include "platform/controls/form.h"

namespace lexmill::platform {

/// Closes a form, which has to outlive it, as its close box would. A form that is at work closes as
/// soon as it can: it is asked so insistently at once, and no dialog waits for an answer any more.
/// One object at a time.
class ProgramEnd {
 public:
  /// @param closeDialog  gives up the dialog that waits for an answer, if there is one
  ProgramEnd(Form& form, std::function<void()> closeDialog);
  ~ProgramEnd();
  ProgramEnd(const ProgramEnd&) = delete;
  ProgramEnd& operator=(const ProgramEnd&) = delete;

  /// Asks for the end: the form closes at once, or as soon as it is no longer at work.
  void Ask();
  /// True from Ask to the end of the object that was asked.
  [[nodiscard]] static bool IsAsked();

 private:
  Form& form_;
  std::function<void()> closeDialog_;
};

}  // namespace lexmill::platform
