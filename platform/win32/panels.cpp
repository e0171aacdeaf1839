// SPDX-License-Identifier: MIT
#include "platform/win32/panels.h"

#include "platform/win32/drawings.h"
#include "platform/win32/native_window.h"

namespace lexmill::platform::win32 {
namespace {

constexpr const wchar_t* kPanelKind = L"LexmillPanel";

void RegisterPanels() {
  static const ATOM registered = [] {
    WNDCLASSW kind = {};
    kind.lpfnWndProc = DefWindowProcW;
    kind.hInstance = GetModuleHandleW(nullptr);
    kind.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    kind.lpszClassName = kPanelKind;
    return RegisterClassW(&kind);
  }();
  static_cast<void>(registered);
}

}  // namespace

HWND MakePanel(const Control& group, const Surroundings& surroundings) {
  RegisterPanels();
  HWND panel = MakeChild(kPanelKind, WS_CLIPCHILDREN, surroundings.window);
  FilterMessages(panel, [panel, &group, &surroundings](UINT message, WPARAM wide, LPARAM param) {
    switch (message) {
      case WM_COMMAND:
      case WM_DRAWITEM:
        SendMessageW(surroundings.window, message, wide, param);
        return true;
      case WM_PAINT:
        PaintGround(panel, surroundings.form, &group, surroundings.fonts.Dpi());
        return true;
      default:
        return false;
    }
  });
  return panel;
}

void PaintGround(HWND window, const Form& form, const Control* group, int dpi) {
  PAINTSTRUCT painting = {};
  HDC device = BeginPaint(window, &painting);
  RECT room = {};
  GetClientRect(window, &room);
  const int saved = SaveDC(device);
  DrawGround(device, room, form, group, dpi);
  RestoreDC(device, saved);
  EndPaint(window, &painting);
}

}  // namespace lexmill::platform::win32
