// SPDX-License-Identifier: MIT
#include "platform/controls/desktop.h"

#include <string>

#include "platform/controls/pixels.h"
#include "platform/win32/keyboard.h"
#include "platform/win32/message_loop.h"
#include "platform/win32/pointer.h"
#include "platform/win32/wide_text.h"

// clang-format off
#include <shellapi.h>
// clang-format on

namespace lexmill::platform {
namespace {

bool& WaitingPointer() {
  static bool waiting = false;
  return waiting;
}

// The pointer changes where it is, also if the mouse rests.
void ShowPointerAnew() {
  POINT place = {};
  GetCursorPos(&place);
  SetCursorPos(place.x, place.y);
}

// A path the way the shell reads it; an address as it is.
std::u16string Absolute(const std::u16string& target) {
  if (GetFileAttributesW(win32::Wide(target)) == INVALID_FILE_ATTRIBUTES) {
    return target;
  }
  std::wstring path(GetFullPathNameW(win32::Wide(target), 0, nullptr, nullptr), L'\0');
  path.resize(
      GetFullPathNameW(win32::Wide(target), static_cast<DWORD>(path.size()), path.data(), nullptr));
  return win32::FromWide(path);
}

// @param verb  null for what a double click does
// @return false if nothing opens files of that kind
bool Open(const std::u16string& target, const wchar_t* verb) {
  SHELLEXECUTEINFOW order = {};
  order.cbSize = sizeof order;
  order.fMask = SEE_MASK_FLAG_NO_UI;
  order.lpVerb = verb;
  order.lpFile = win32::Wide(target);
  order.nShow = SW_SHOWNORMAL;
  return ShellExecuteExW(&order) != FALSE || GetLastError() != ERROR_NO_ASSOCIATION;
}

}  // namespace

bool win32::IsWaitingPointer() {
  return WaitingPointer();
}

void DoEvents() {
  win32::DeliverPending();
}

void SetMousePointer(MousePointer pointer) {
  WaitingPointer() = pointer == MousePointer::Hourglass;
  ShowPointerAnew();
}

// The keys come in after what is going on, and in no window if none is active.
void SendKeys(std::u16string_view keys) {
  HWND active = GetActiveWindow();
  const WPARAM key = win32::KeyNamed(keys);
  if (active == nullptr || key == 0) {
    return;
  }
  HWND focus = GetFocus();
  constexpr LPARAM kOnce = 1;
  constexpr LPARAM kReleased = 0xC0000001;
  PostMessageW(focus == nullptr ? active : focus, WM_KEYDOWN, key, kOnce);
  PostMessageW(focus == nullptr ? active : focus, WM_KEYUP, key, kReleased);
}

ScreenMetrics GetScreenMetrics() {
  const int dpi = static_cast<int>(GetDpiForSystem());
  const std::int32_t perPixel = ToTwips(1, dpi);
  return {.width = ToTwips(GetSystemMetrics(SM_CXSCREEN), dpi),
          .height = ToTwips(GetSystemMetrics(SM_CYSCREEN), dpi),
          .twipsPerPixelX = perPixel,
          .twipsPerPixelY = perPixel};
}

// Where no program is known for a kind of file, the user chooses one.
void ShellOpen(std::u16string_view target) {
  const std::u16string path = Absolute(std::u16string(target));
  if (!Open(path, nullptr)) {
    Open(path, L"openas");
  }
}

}  // namespace lexmill::platform
