// SPDX-License-Identifier: MIT
#include "platform/controls/desktop.h"

#include "platform/headless/headless.h"

namespace lexmill::platform {

void DoEvents() {
  auto& session = headless::TheSession();
  ++session.doEventsCount;
  if (session.onDoEvents) {
    session.onDoEvents();
  }
}

void SetMousePointer(MousePointer pointer) {
  headless::TheSession().mousePointer = pointer;
}

void SendKeys(std::u16string_view keys) {
  headless::TheSession().sentKeys.emplace_back(keys);
}

ScreenMetrics GetScreenMetrics() {
  return headless::TheSession().screen;
}

void ShellOpen(std::u16string_view target) {
  headless::TheSession().openedTargets.emplace_back(target);
}

}  // namespace lexmill::platform
