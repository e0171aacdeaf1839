// SPDX-License-Identifier: MIT
#include "platform/win32/keyboard.h"

#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "platform/controls/window_keys.h"
#include "platform/text/text.h"
#include "platform/win32/wide_text.h"

namespace lexmill::platform::win32 {
namespace {

constexpr std::array kNamedKeys = {
    std::pair(std::u16string_view(u"{tab}"), VK_TAB),
    std::pair(std::u16string_view(u"{enter}"), VK_RETURN),
    std::pair(std::u16string_view(u"{esc}"), VK_ESCAPE),
};

bool IsDown(int key) {
  return GetKeyState(key) < 0;
}

bool IsRepeated(const MSG& message) {
  return (HIWORD(message.lParam) & KF_REPEAT) != 0;
}

// True for a field that wants the key for itself, as one with an open list wants Enter and Esc.
bool IsWanted(const MSG& message) {
  const LRESULT wanted =
      SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message));
  return (wanted & DLGC_WANTMESSAGE) != 0;
}

// The marks of hot keys and the frame round the focus show once the keyboard is used.
void ShowMarks(HWND window) {
  SendMessageW(window, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL | UISF_HIDEFOCUS), 0);
}

bool IsTypedInto(HWND window) {
  return (SendMessageW(window, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0;
}

void MoveFocus(Form& form) {
  Control* next = NextInTabOrder(form, form.ActiveControl(), IsDown(VK_SHIFT));
  if (next == nullptr) {
    return;
  }
  next->SetFocus();
  if (IsTypedInto(GetFocus())) {
    Edit_SetSel(GetFocus(), 0, -1);
  }
}

// Where the word or the part of a path begins that ends there.
std::size_t StartOfWord(std::u16string_view text) {
  constexpr std::u16string_view kBetween = u" \\/.;";
  const std::size_t last = text.find_last_not_of(kBetween);
  const std::size_t before = text.find_last_of(kBetween, last);
  return last == std::u16string_view::npos || before == std::u16string_view::npos ? 0 : before + 1;
}

// What is chosen, or else the word before the cursor.
void DeleteWord(HWND field) {
  DWORD start = 0;
  DWORD end = 0;
  SendMessageW(field, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  if (start == end) {
    Edit_SetSel(field, StartOfWord(TextOf(field).substr(0, end)), end);
  }
  SendMessageW(field, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L""));
}

// The system's field knows the one on some versions only, and types a control character for the
// other. @return whether the key means something in a field
bool TakeFieldKey(const MSG& message) {
  if (!IsDown(VK_CONTROL) || IsDown(VK_MENU) || !IsTypedInto(message.hwnd)) {
    return false;
  }
  switch (message.wParam) {
    case u'A':
      Edit_SetSel(message.hwnd, 0, -1);
      return true;
    case VK_BACK:
      DeleteWord(message.hwnd);
      return true;
    default:
      return false;
  }
}

// "Ctrl+O" and the like.
std::u16string KeysOf(char16_t key) {
  std::u16string keys;
  keys += IsDown(VK_CONTROL) ? u"Ctrl+" : u"";
  keys += IsDown(VK_MENU) ? u"Alt+" : u"";
  keys += IsDown(VK_SHIFT) ? u"Shift+" : u"";
  return keys + key;
}

// The system has to know that a key came with Alt, or it takes the end of Alt for a call of the
// menu.
void ReportAltAsUsed(const MSG& message) {
  if (message.message == WM_SYSKEYDOWN) {
    DefWindowProcW(message.hwnd, message.message, message.wParam, message.lParam);
  }
}

// @return whether the letter or digit means something to the form
bool TakeLetter(Form& form, const MSG& message) {
  const auto key = static_cast<char16_t>(message.wParam);
  const bool isLetter = (key >= u'0' && key <= u'9') || (key >= u'A' && key <= u'Z');
  if (!isLetter || (!IsDown(VK_CONTROL) && !IsDown(VK_MENU))) {
    return false;
  }
  Control* control = WithShortcut(form, KeysOf(key));
  if (control == nullptr && !IsDown(VK_CONTROL)) {
    control = WithHotKey(form, key);
  }
  if (control != nullptr) {
    ReportAltAsUsed(message);
  }
  if (control != nullptr && !IsRepeated(message)) {
    form.UserPressesShortcut(*control);
  }
  return control != nullptr;
}

// @return whether the key means something to the form
bool TakePress(Form& form, HWND window, const MSG& message) {
  switch (message.wParam) {
    case VK_TAB:
      ShowMarks(window);
      MoveFocus(form);
      return true;
    case VK_RETURN:
    case VK_ESCAPE:
      if (IsWanted(message)) {
        return false;
      }
      if (!IsRepeated(message)) {
        message.wParam == VK_RETURN ? form.UserPressesEnter() : form.UserPressesEscape();
      }
      return true;
    case VK_F1:
      if (!IsRepeated(message)) {
        form.UserWantsHelp();
      }
      return true;
    case VK_MENU:
      ShowMarks(window);
      return false;
    case VK_UP:
    case VK_DOWN:
      ReportAltAsUsed(message);  // as it opens a list
      return false;
    default:
      return TakeLetter(form, message) || TakeFieldKey(message);
  }
}

}  // namespace

bool TakeKey(Form& form, HWND window, const MSG& message) {
  const bool isPress = message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN;
  const bool isHere = message.hwnd == window || IsChild(window, message.hwnd) != FALSE;
  return isPress && isHere && TakePress(form, window, message);
}

WPARAM KeyNamed(std::u16string_view keys) {
  const std::u16string name = LowerCase(keys);
  for (const auto& [known, key] : kNamedKeys) {
    if (name == known) {
      return key;
    }
  }
  return 0;
}

}  // namespace lexmill::platform::win32
