// SPDX-License-Identifier: MIT
#include "platform/win32/buttons.h"

#include <string>

#include "platform/controls/spoken_names.h"
#include "platform/win32/native_window.h"
#include "platform/win32/wide_text.h"

namespace lexmill::platform::win32 {
namespace {

constexpr DWORD kCommon = WS_TABSTOP | BS_NOTIFY;
constexpr int kPushEdges = 8;  ///< left and right of a push button's caption, in plain pixels
constexpr int kBoxGap = 4;     ///< between a box and its caption

void SetCheck(HWND window, int state) {
  if (Button_GetCheck(window) != state) {
    Button_SetCheck(window, state);
  }
}

// What a button's place leaves for its caption, in pixels.
int RoomOf(const Control& control, HWND window, int dpi) {
  const int width = ToPixels(control.Place(), dpi).width;
  const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
  const bool isBox = (style & BS_TYPEMASK) == BS_3STATE && (style & BS_PUSHLIKE) == 0;
  return isBox ? width - GetSystemMetricsForDpi(SM_CXMENUCHECK, static_cast<UINT>(dpi)) -
                     MulDiv(kBoxGap, dpi, kPlainDpi)
               : width - MulDiv(kPushEdges, dpi, kPlainDpi);
}

}  // namespace

HWND MakeButton(const CheckBox& box, HWND parent) {
  return MakeChild(L"BUTTON", kCommon | BS_3STATE | (box.PushButtonStyle() ? BS_PUSHLIKE : 0U),
                   parent);
}

HWND MakeButton(const Button& /*button*/, HWND parent) {
  return MakeChild(L"BUTTON", kCommon | BS_PUSHBUTTON, parent);
}

HWND MakeButton(const OptionButton& /*button*/, HWND parent) {
  return MakeChild(L"BUTTON", kCommon | BS_3STATE | BS_PUSHLIKE, parent);
}

void ShowState(const CheckBox& box, HWND window) {
  SetCheck(window, box.Value());
}

void ShowState(const OptionButton& button, HWND window) {
  SetCheck(window, button.Value() ? BST_CHECKED : BST_UNCHECKED);
}

void ShowDefault(const Form& form, const Button& button, HWND window) {
  const LONG_PTR type = GetWindowLongPtrW(window, GWL_STYLE) & BS_TYPEMASK;
  const LONG wanted = form.EnterButton() == &button ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
  if (type != wanted) {
    Button_SetStyle(window, wanted, TRUE);
  }
}

void ShowCaption(const Control& control, HWND window, FontSet& fonts) {
  if (TextOf(window) != control.Caption()) {
    SetWindowTextW(window, Wide(control.Caption()));
  }
  SetFont(window, fonts.Fitting(control, WithoutMarks(control.Caption()),
                                RoomOf(control, window, fonts.Dpi())));
}

}  // namespace lexmill::platform::win32
