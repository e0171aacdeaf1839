// SPDX-License-Identifier: MIT
#include "platform/win32/fields.h"

#include <algorithm>
#include <string>

#include "platform/controls/label_fit.h"
#include "platform/win32/field_frame.h"
#include "platform/win32/file_drop.h"
#include "platform/win32/native_window.h"
#include "platform/win32/wide_text.h"

namespace lexmill::platform::win32 {
namespace {

constexpr int kBorders = 2;  ///< above and below a line of text, in pixels
constexpr int kMargin = 2;   ///< left and right of it, in plain pixels
// A private message of a path field: its list has closed, and the text is to be the control's.
constexpr UINT kListClosed = WM_APP + 1;

bool IsOpen(HWND combo) {
  return ComboBox_GetDroppedState(combo) != FALSE;
}

void GoToEnd(HWND typingPart) {
  const int end = GetWindowTextLengthW(typingPart);
  Edit_SetSel(typingPart, end, end);
  Edit_ScrollCaret(typingPart);
}

// The cursor goes to the end, as after typing, where a path has its name.
void ShowText(const std::u16string& text, HWND field, HWND typingPart) {
  if (TextOf(field) != text) {
    SetWindowTextW(field, Wide(text));
    GoToEnd(typingPart);
  }
}

// The system's field takes another text from its list when the wheel turns over it.
void FilterPathField(ComboBox& combo, HWND field, HWND window) {
  FilterMessages(window, [&combo, field, window](UINT message, WPARAM wide, LPARAM /*param*/) {
    switch (message) {
      case WM_MOUSEWHEEL:
        return !IsOpen(field);
      case WM_DROPFILES:
        DropFiles(combo, reinterpret_cast<HDROP>(wide));
        return true;
      case WM_PASTE:
        return PasteFiles(combo, window);
      case kListClosed:
        ShowField(combo, field);
        return true;
      default:
        return false;
    }
  });
}

void Choose(ComboBox& combo, HWND field) {
  const int position = ComboBox_GetCurSel(field);
  if (position >= 0) {
    combo.UserChooses(static_cast<std::size_t>(position));
  }
}

// The system's field shows its text at the upper edge of a place that is higher than the text.
void CentreTyping(HWND typingPart, int line) {
  PixelPlace place = PlaceOf(typingPart);
  place.top += std::max(0, (place.height - line) / 2);
  place.height = std::min(place.height, line);
  MoveChild(typingPart, place);
}

// The list is as wide as its longest path, or as half the screen, and the rest is scrolled to.
void WidenList(const ComboBox& combo, HWND field, FontSet& fonts) {
  int width = 0;
  for (std::size_t i = 0; i < combo.ListCount(); ++i) {
    const std::u16string item(combo.List(i));
    width = std::max(width, fonts.SizeOf(item, GetWindowFont(field)).width);
  }
  width += GetSystemMetricsForDpi(SM_CXVSCROLL, static_cast<UINT>(fonts.Dpi()));
  const int limit = GetSystemMetrics(SM_CXSCREEN) / 2;
  SendMessageW(field, CB_SETDROPPEDWIDTH, static_cast<WPARAM>(std::min(width, limit)), 0);
  SendMessageW(field, CB_SETHORIZONTALEXTENT, static_cast<WPARAM>(width), 0);
}

}  // namespace

HWND TypingPart(HWND combo) {
  COMBOBOXINFO parts = {};
  parts.cbSize = sizeof parts;
  GetComboBoxInfo(combo, &parts);
  return parts.hwndItem;
}

HWND MakeField(TextBox& /*box*/, HWND parent) {
  HWND field = MakeChild(L"EDIT", WS_TABSTOP | ES_AUTOHSCROLL, parent);
  GiveThinFrame(field);
  return field;
}

HWND MakeField(ComboBox& combo, HWND parent) {
  HWND field = MakeChild(
      L"COMBOBOX", WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL, parent);
  ComboBox_LimitText(field, 0);
  for (HWND window : {field, TypingPart(field)}) {
    FilterPathField(combo, field, window);
    AcceptFiles(window);
  }
  return field;
}

void ShowField(const TextBox& box, HWND field) {
  Edit_LimitText(field, box.MaxLength());
  ShowText(box.Text(), field, field);
}

void ShowField(const ComboBox& combo, HWND field) {
  ShowText(combo.Text(), field, TypingPart(field));
}

// The list goes item by item: emptied at once, it would take the text along.
void ShowList(const ComboBox& combo, HWND field, FontSet& fonts) {
  while (ComboBox_GetCount(field) > 0) {
    ComboBox_DeleteString(field, 0);
  }
  for (std::size_t i = 0; i < combo.ListCount(); ++i) {
    const std::u16string item(combo.List(i));
    ComboBox_AddString(field, Wide(item));
  }
  WidenList(combo, field, fonts);
  ShowField(combo, field);
}

void PlaceField(const TextBox& box, HWND field, FontSet& fonts) {
  const int line = fonts.SizeOf({}, GetWindowFont(field)).height;
  PixelPlace place = Flowing(ToPixels(box.Place(), fonts.Dpi()),
                             {.width = 0, .height = line + kBorders}, Alignment::Left);
  place.top = std::max(place.top, 0);
  MoveChild(field, place);
  const int margin = MulDiv(kMargin, fonts.Dpi(), kPlainDpi);
  SendMessageW(field, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(margin, margin));
}

// The height of the system's field follows from its line's; what a move sets is the height with the
// open list.
void PlaceField(const ComboBox& combo, HWND field, FontSet& fonts) {
  constexpr int kOpenLines = 12;
  constexpr WPARAM kTypingLine = static_cast<WPARAM>(-1);
  const PixelPlace place = ToPixels(combo.Place(), fonts.Dpi());
  const int line = fonts.SizeOf({}, GetWindowFont(field)).height;
  SendMessageW(field, CB_SETITEMHEIGHT, 0, line);
  MoveWindow(field, place.left, place.top, place.width, place.height + kOpenLines * line, TRUE);
  constexpr int kUsualBorders = 6;
  int typing = place.height - kUsualBorders;
  SendMessageW(field, CB_SETITEMHEIGHT, kTypingLine, typing);
  typing += place.height - PlaceOf(field).height;
  SendMessageW(field, CB_SETITEMHEIGHT, kTypingLine, typing);
  CentreTyping(TypingPart(field), line);
  GoToEnd(TypingPart(field));  // the system's field chooses all of its text when it is moved
  WidenList(combo, field, fonts);
}

void TakeNotification(TextBox& box, HWND field, UINT notification) {
  if (notification == EN_SETFOCUS && box.IsUsable()) {
    box.SetFocus();
  } else if (notification == EN_CHANGE) {
    box.UserEnters(TextOf(field));
    ShowField(box, field);
  }
}

void TakeNotification(ComboBox& combo, HWND field, UINT notification) {
  switch (notification) {
    case CBN_SETFOCUS:
      if (combo.IsUsable()) {
        combo.SetFocus();
      }
      break;
    case CBN_KILLFOCUS:
      Edit_SetSel(TypingPart(field), -1, 0);  // chosen text would stay marked
      break;
    case CBN_EDITCHANGE:
      combo.UserEnters(TextOf(field));
      ShowField(combo, field);
      break;
    case CBN_SELENDOK:
      Choose(combo, field);
      break;
    case CBN_CLOSEUP:
      PostMessageW(field, kListClosed, 0, 0);
      break;
    default:
      break;
  }
}

}  // namespace lexmill::platform::win32
