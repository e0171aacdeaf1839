// SPDX-License-Identifier: MIT
#include "platform/win32/message_loop.h"

#include <utility>

#include "platform/controls/failure_message.h"

// clang-format off
#include <shellapi.h>
// clang-format on

namespace lexmill::platform::win32 {
namespace {

std::function<bool(const MSG&)>& KeyFilter() {
  static std::function<bool(const MSG&)> filter;
  return filter;
}

void Deliver(const MSG& message) {
  bool isTaken = false;
  if (KeyFilter()) {
    ShowFailureOf([&] { isTaken = KeyFilter()(message); });
  }
  if (!isTaken) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

bool IsBetween(UINT message, UINT first, UINT last) {
  return message >= first && message <= last;
}

// The frame's close box and the keys for it aren't: a run whose child hangs has to hear them.
bool IsUserInput(const MSG& message) {
  const bool closes = message.message == WM_SYSKEYDOWN && message.wParam == VK_F4;
  return !closes && (IsBetween(message.message, WM_KEYFIRST, WM_KEYLAST) ||
                     IsBetween(message.message, WM_MOUSEFIRST, WM_MOUSELAST) ||
                     message.message == WM_DROPFILES || message.message == WM_CONTEXTMENU);
}

void Drop(const MSG& message) {
  if (message.message == WM_DROPFILES) {
    DragFinish(reinterpret_cast<HDROP>(message.wParam));
  }
}

// Gives each message that has come in to `take`. One that ends the program stays for its loop.
template <class Taker>
void TakePending(const Taker& take) {
  MSG message = {};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    take(message);
  }
}

}  // namespace

void SetKeyFilter(std::function<bool(const MSG& message)> filter) {
  KeyFilter() = std::move(filter);
}

int RunMessageLoop() {
  MSG message = {};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    Deliver(message);
  }
  return static_cast<int>(message.wParam);
}

void DeliverPending() {
  TakePending(Deliver);
}

void RepaintWhileWaiting() {
  TakePending([](const MSG& message) {
    IsUserInput(message) ? Drop(message) : static_cast<void>(DispatchMessageW(&message));
  });
}

}  // namespace lexmill::platform::win32
