// SPDX-License-Identifier: MIT
#include "platform/win32/native_window.h"

#include <memory>
#include <utility>

#include "platform/controls/failure_message.h"

namespace lexmill::platform::win32 {
namespace {

LRESULT CALLBACK Filtered(HWND window, UINT message, WPARAM wide, LPARAM param, UINT_PTR id,
                          DWORD_PTR data) {
  auto* filter = reinterpret_cast<MessageFilter*>(data);
  if (message == WM_NCDESTROY) {
    const std::unique_ptr<MessageFilter> owned(filter);
    RemoveWindowSubclass(window, Filtered, id);
    return DefSubclassProc(window, message, wide, param);
  }
  bool isTaken = false;
  ShowFailureOf([&] { isTaken = (*filter)(message, wide, param); });
  return isTaken ? 0 : DefSubclassProc(window, message, wide, param);
}

}  // namespace

HWND MakeChild(const wchar_t* kind, DWORD style, HWND parent) {
  return CreateWindowExW(0, kind, L"", WS_CHILD | WS_CLIPSIBLINGS | style, 0, 0, 0, 0, parent,
                         nullptr, GetModuleHandleW(nullptr), nullptr);
}

void MoveChild(HWND child, const PixelPlace& place) {
  if (PlaceOf(child) != place) {
    MoveWindow(child, place.left, place.top, place.width, place.height, TRUE);
  }
}

PixelPlace PlaceOf(HWND child) {
  RECT room = {};
  GetWindowRect(child, &room);
  MapWindowPoints(nullptr, GetParent(child), reinterpret_cast<POINT*>(&room), 2);
  return {.left = room.left,
          .top = room.top,
          .width = room.right - room.left,
          .height = room.bottom - room.top};
}

void SetFont(HWND window, HFONT font) {
  if (GetWindowFont(window) != font) {
    SetWindowFont(window, font, TRUE);
  }
}

void FilterMessages(HWND window, MessageFilter filter) {
  auto owned = std::make_unique<MessageFilter>(std::move(filter));
  SetWindowSubclass(window, Filtered, 0, reinterpret_cast<DWORD_PTR>(owned.release()));
}

}  // namespace lexmill::platform::win32
