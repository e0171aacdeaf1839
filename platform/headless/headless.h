// SPDX-License-Identifier: MIT
// platform/headless: dialogs and desktop without a screen, for the console companion and for tests.
// What was shown is kept; what a user would answer is given beforehand.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/controls/desktop.h"
#include "platform/controls/dialogs.h"

namespace lexmill::platform::headless {

struct ShownMessage {
  std::u16string text;
  MessageIcon icon = MessageIcon::Critical;
  MessageButtons buttons = MessageButtons::Ok;
};

/// What goes on between the program and the user who isn't there.
struct Session {
  std::vector<ShownMessage> messages;        ///< all that were shown, in order
  std::deque<MessageAnswer> messageAnswers;  ///< for the next messages; Ok once there is none
  bool messagesToStandardError = false;      ///< also write each message there, in UTF-8

  std::vector<FileDialogRequest> openDialogs;  ///< all that were shown, in order
  std::vector<FileDialogRequest> saveDialogs;
  /// For the next file dialogs of either kind, none for a cancelled one; cancelled once it is
  /// empty.
  std::deque<std::optional<FileDialogAnswer>> fileAnswers;

  std::function<void()> onDoEvents;  ///< runs inside each DoEvents; may be empty
  int doEventsCount = 0;
  MousePointer mousePointer = MousePointer::Default;
  std::vector<std::u16string> sentKeys;
  ScreenMetrics screen{.width = 1024 * 15, .height = 768 * 15};
  std::vector<std::u16string> openedTargets;  ///< what ShellOpen was given
};

/// The one session of the process. Assign a fresh one to forget everything.
[[nodiscard]] Session& TheSession();

}  // namespace lexmill::platform::headless
