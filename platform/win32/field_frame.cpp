// SPDX-License-Identifier: MIT
#include "platform/win32/field_frame.h"

#include <memory>
#include <type_traits>

#include "platform/win32/colors.h"
#include "platform/win32/native_window.h"

// clang-format off
#include <uxtheme.h>
#include <vssym32.h>
// clang-format on

namespace lexmill::platform::win32 {
namespace {

struct ThemeCloser {
  void operator()(HTHEME theme) const { CloseThemeData(theme); }
};
using Theme = std::unique_ptr<std::remove_pointer_t<HTHEME>, ThemeCloser>;

int StateOf(HWND field) {
  if (IsWindowEnabled(field) == FALSE) {
    return ETS_DISABLED;
  }
  return GetFocus() == field ? ETS_FOCUSED : ETS_NORMAL;
}

void DrawFrame(HWND field) {
  RECT room = {};
  GetWindowRect(field, &room);
  OffsetRect(&room, -room.left, -room.top);
  HDC device = GetWindowDC(field);
  ExcludeClipRect(device, room.left + 1, room.top + 1, room.right - 1, room.bottom - 1);
  if (const Theme theme(OpenThemeData(field, L"EDIT")); theme != nullptr) {
    DrawThemeBackground(theme.get(), device, EP_EDITTEXT, StateOf(field), &room, nullptr);
  } else {
    Frame(device, room, GetSysColor(COLOR_WINDOWFRAME), 1);
  }
  ReleaseDC(field, device);
}

}  // namespace

void GiveThinFrame(HWND field) {
  FilterMessages(field, [field](UINT message, WPARAM /*wide*/, LPARAM param) {
    switch (message) {
      case WM_NCCALCSIZE:
        InflateRect(reinterpret_cast<RECT*>(param), -1, -1);
        return true;
      case WM_NCPAINT:
        DrawFrame(field);
        return true;
      case WM_SETFOCUS:
      case WM_KILLFOCUS:
      case WM_ENABLE:
        RedrawWindow(field, nullptr, nullptr, RDW_FRAME | RDW_INVALIDATE);
        return false;
      default:
        return false;
    }
  });
}

}  // namespace lexmill::platform::win32
