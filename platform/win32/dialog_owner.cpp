// SPDX-License-Identifier: MIT
#include "platform/win32/dialog_owner.h"

#include <array>
#include <string_view>

namespace lexmill::platform::win32 {
namespace {

bool IsOfKind(HWND window, std::wstring_view kind) {
  constexpr std::size_t kUnits = 16;  // longer names are cut, and are of neither kind
  std::array<wchar_t, kUnits> name = {};
  const int length = GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return std::wstring_view(name.data(), static_cast<std::size_t>(length)) == kind;
}

BOOL CALLBACK TakeForm(HWND window, LPARAM found) {
  if (!IsOfKind(window, kFormKind) || IsWindowVisible(window) == FALSE) {
    return TRUE;
  }
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

// The system's own kind of window for dialogs and messages.
BOOL CALLBACK CloseDialog(HWND window, LPARAM /*unused*/) {
  if (IsOfKind(window, L"#32770")) {
    PostMessageW(window, WM_CLOSE, 0, 0);
  }
  return TRUE;
}

}  // namespace

HWND DialogOwner() {
  HWND form = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), TakeForm, reinterpret_cast<LPARAM>(&form));
  return form == nullptr ? nullptr : GetLastActivePopup(form);
}

// The system lists windows from the front to the back.
void CloseDialogs() {
  EnumThreadWindows(GetCurrentThreadId(), CloseDialog, 0);
}

}  // namespace lexmill::platform::win32
