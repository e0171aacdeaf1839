// SPDX-License-Identifier: MIT
// What the form's window does with the system's messages.
#include "platform/controls/controls.h"
#include "platform/controls/failure_message.h"
#include "platform/win32/form_window.h"
#include "platform/win32/panels.h"
#include "platform/win32/pointer.h"

namespace lexmill::platform::win32 {

LRESULT CALLBACK FormWindow::Procedure(HWND window, UINT message, WPARAM wide, LPARAM param) {
  auto* owner = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  LRESULT result = 0;
  bool isTaken = false;
  if (owner != nullptr) {
    ShowFailureOf([&] { isTaken = owner->Take(message, wide, param, result); });
  }
  return isTaken ? result : DefWindowProcW(window, message, wide, param);
}

bool FormWindow::Take(UINT message, WPARAM wide, LPARAM param, LRESULT& result) {
  switch (message) {
    case WM_COMMAND:
      TakeCommand(reinterpret_cast<HWND>(param), HIWORD(wide));
      return true;
    case WM_DRAWITEM:
      Draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(param));
      return true;
    case WM_PAINT:
      PaintGround(window_, form_, nullptr, fonts_.Dpi());
      return true;
    case WM_SETCURSOR:
      result = TRUE;
      return LOWORD(param) == HTCLIENT && ShowPointer(reinterpret_cast<HWND>(wide));
    case WM_SETFOCUS:
      RestoreFocus();
      return true;
    case WM_WINDOWPOSCHANGED:
      ReportPlace();
      return false;
    case WM_DPICHANGED:
      TakeScreen(LOWORD(wide), *reinterpret_cast<const RECT*>(param));
      return true;
    default:
      return TakeChange(message, wide) || TakeEnd(message, wide, result);
  }
}

// The desktop's font or colours are others now, which is the system's own matter as well.
bool FormWindow::TakeChange(UINT message, WPARAM wide) {
  const bool isFont = message == WM_SETTINGCHANGE && wide == SPI_SETNONCLIENTMETRICS;
  if (isFont || message == WM_SYSCOLORCHANGE || message == WM_THEMECHANGED) {
    fonts_.Reset(fonts_.Dpi());
    ShowSize();
    ShowAnew();
  }
  return false;
}

bool FormWindow::TakeEnd(UINT message, WPARAM wide, LRESULT& result) {
  switch (message) {
    case WM_CLOSE:
      form_.Close();
      return true;
    case WM_QUERYENDSESSION:
      result = MayEndSession() ? TRUE : FALSE;
      return true;
    case WM_ENDSESSION:
      if (wide != FALSE) {
        end_.Ask();
      }
      return true;
    default:
      return false;
  }
}

void FormWindow::TakeCommand(HWND window, UINT notification) {
  if (ControlMirror* mirror = MirrorOf(window)) {
    mirror->TakeNotification(notification);
    for (const auto& each : mirrors_) {
      each->ShowRole();
    }
  }
}

void FormWindow::Draw(const DRAWITEMSTRUCT& drawing) const {
  if (ControlMirror* mirror = MirrorOf(drawing.hwndItem)) {
    mirror->Draw(drawing);
  }
}

// The plain pointer is the business of whatever is under it.
bool FormWindow::ShowPointer(HWND under) const {
  if (IsWaitingPointer()) {
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    return true;
  }
  const ControlMirror* mirror = MirrorOf(under);
  if (mirror == nullptr || mirror->Shown().Kind() != ControlKind::Label ||
      !static_cast<const Label&>(mirror->Shown()).HandPointer()) {
    return false;
  }
  SetCursor(LoadCursorW(nullptr, IDC_HAND));
  return true;
}

// The window is on a screen of another resolution.
void FormWindow::TakeScreen(int dpi, const RECT& place) {
  fonts_.Reset(dpi);
  ShowAt(place.left, place.top);
  ShowAnew();
}

// The session may go on all the same, if something else keeps it: only a run has to end before the
// answer, which holds the session's end back until it has.
bool FormWindow::MayEndSession() {
  if (!form_.Busy()) {
    return true;
  }
  ShutdownBlockReasonCreate(window_, L"正在结束这次处理");
  end_.Ask();
  return !form_.Busy();
}

}  // namespace lexmill::platform::win32
