// SPDX-License-Identifier: MIT
#include "platform/win32/labels.h"

#include <algorithm>
#include <string>

#include "platform/controls/label_fit.h"
#include "platform/controls/spoken_names.h"
#include "platform/win32/colors.h"
#include "platform/win32/drawings.h"
#include "platform/win32/native_window.h"
#include "platform/win32/wide_text.h"

// clang-format off
#include <uxtheme.h>
// clang-format on

namespace lexmill::platform::win32 {
namespace {

bool HasBackground(const Label& label) {
  return !label.Transparent() && label.BackColor() != kDefaultColor;
}

UINT FormatOf(Alignment alignment) {
  constexpr UINT kOneLine = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;
  switch (alignment) {
    case Alignment::Right:
      return kOneLine | DT_RIGHT;
    case Alignment::Center:
      return kOneLine | DT_CENTER;
    case Alignment::Left:
      break;
  }
  return kOneLine | DT_LEFT;
}

// Without a background the label needs no more than its text, and leaves the rest of its place to
// what overlaps it.
PixelPlace AroundText(PixelPlace place, int width, Alignment alignment) {
  const int spare = std::max(0, place.width - width);
  if (alignment == Alignment::Right) {
    place.left += spare;
  } else if (alignment == Alignment::Center) {
    place.left += spare / 2;
  }
  place.width -= spare;
  return place;
}

// Draws what the group shows under the window.
void DrawBehind(const Label& label, HDC device, HWND window, const Form& form, int dpi) {
  const PixelPlace place = PlaceOf(window);
  RECT room = {};
  GetClientRect(GetParent(window), &room);
  OffsetViewportOrgEx(device, -place.left, -place.top, nullptr);
  DrawGround(device, room, form, label.Container(), dpi);
  if (HasBackground(label)) {
    const PixelPlace own = ToPixels(label.Place(), dpi);
    Fill(device, {own.left, own.top, own.left + own.width, own.top + own.height},
         ToSystem(label.BackColor(), COLOR_BTNFACE));
  }
  OffsetViewportOrgEx(device, place.left, place.top, nullptr);
}

COLORREF TextColor(const Label& label) {
  if (!label.Enabled()) {
    return GetSysColor(COLOR_GRAYTEXT);
  }
  return ReadableTextColor(label, ToSystem(label.ForeColor(), COLOR_BTNTEXT),
                           GetSysColor(COLOR_BTNFACE));
}

}  // namespace

// One that reports clicks can be pointed at.
HWND MakeLabel(HWND parent) {
  return MakeChild(L"STATIC", SS_OWNERDRAW | SS_NOTIFY | SS_NOPREFIX, parent);
}

void ShowLabel(const Label& label, HWND window, FontSet& fonts) {
  const std::u16string text = WithoutMarks(label.Caption());
  const PixelPlace place = ToPixels(label.Place(), fonts.Dpi());
  const int room = place.width + MulDiv(kMostFlow, fonts.Dpi(), kPlainDpi);
  HFONT font = fonts.Fitting(label, text, room);
  PixelSize size = fonts.SizeOf(text, font);
  size.width = std::min(size.width, room);
  const PixelPlace flowing = Flowing(place, size, label.Alignment());
  SetFont(window, font);
  MoveChild(window,
            HasBackground(label) ? flowing : AroundText(flowing, size.width, label.Alignment()));
  if (TextOf(window) != text) {
    SetWindowTextW(window, Wide(text));
  }
  InvalidateRect(window, nullptr, FALSE);
}

void DrawLabel(const Label& label, const DRAWITEMSTRUCT& drawing, const Form& form,
               FontSet& fonts) {
  // Drawn aside, so that a text that changes often doesn't flicker.
  HDC device = drawing.hDC;
  HPAINTBUFFER aside =
      BeginBufferedPaint(drawing.hDC, &drawing.rcItem, BPBF_COMPATIBLEBITMAP, nullptr, &device);
  const int saved = SaveDC(device);
  DrawBehind(label, device, drawing.hwndItem, form, fonts.Dpi());
  const std::u16string text = TextOf(drawing.hwndItem);
  RECT room = drawing.rcItem;
  SelectObject(device, GetWindowFont(drawing.hwndItem));
  SetBkMode(device, TRANSPARENT);
  SetTextColor(device, TextColor(label));
  DrawTextW(device, Wide(text), static_cast<int>(text.size()), &room, FormatOf(label.Alignment()));
  RestoreDC(device, saved);
  EndBufferedPaint(aside, TRUE);
}

void TakeNotification(Label& label, UINT notification) {
  if (notification == STN_CLICKED) {
    label.UserClicks();
  } else if (notification == STN_DBLCLK) {
    label.UserDoubleClicks();
  }
}

}  // namespace lexmill::platform::win32
