// SPDX-License-Identifier: MIT
// platform/qt: the desktop on the screen; the only folder that knows the toolkit.
// The program's end when others than its user ask for it: a signal, the end of the desktop session.
#pragma once

#include "platform/controls/form.h"

namespace lexmill::platform::qt {

/// Closes a form, which has to outlive it, as its close box would. A form that is at work closes as
/// soon as it can: it is asked so insistently at once, and no dialog waits for an answer any more.
/// One object at a time.
class ProgramEnd {
 public:
  explicit ProgramEnd(Form& form) : form_(form) {}
  ~ProgramEnd();
  ProgramEnd(const ProgramEnd&) = delete;
  ProgramEnd& operator=(const ProgramEnd&) = delete;

  /// Asks for the end: the form closes at once, or as soon as it is no longer at work.
  void Ask();
  /// True from Ask to the end of the object that was asked.
  [[nodiscard]] static bool IsAsked();

 private:
  Form& form_;
};

}  // namespace lexmill::platform::qt
