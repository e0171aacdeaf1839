// SPDX-License-Identifier: MIT
#include "platform/win32/drawings.h"

#include <algorithm>

#include "platform/controls/controls.h"
#include "platform/controls/pixels.h"
#include "platform/controls/window_order.h"
#include "platform/win32/colors.h"
#include "platform/win32/picture.h"

namespace lexmill::platform::win32 {
namespace {

RECT RoomOf(const Control& control, int dpi) {
  const PixelPlace place = ToPixels(control.Place(), dpi);
  return {place.left, place.top, place.left + place.width, place.top + place.height};
}

// A pixel of a screen without scale.
int ThicknessOf(int dpi) {
  return std::max(1, dpi / kPlainDpi);
}

// A line without height is still as high as it is thick.
void DrawLine(HDC device, const Line& line, int dpi) {
  const int thick = ThicknessOf(dpi);
  RECT room = RoomOf(line, dpi);
  const COLORREF color = ToSystem(line.ForeColor(), COLOR_WINDOWTEXT);
  if (room.right - room.left == 0 || room.bottom - room.top == 0) {
    room.right += thick;
    room.bottom += thick;
    Fill(device, room, color);
    return;
  }
  SelectObject(device, GetStockObject(DC_PEN));
  SetDCPenColor(device, color);
  MoveToEx(device, room.left, room.top, nullptr);
  LineTo(device, room.right, room.bottom);
}

// True if a part of it is to be drawn anew. A line may have no height.
bool IsNeeded(HDC device, const Control& control, int dpi) {
  RECT room = RoomOf(control, dpi);
  InflateRect(&room, 1, 1);
  return RectVisible(device, &room) != FALSE;
}

void Draw(HDC device, const Control& control, int dpi) {
  const RECT room = RoomOf(control, dpi);
  switch (control.Kind()) {
    case ControlKind::Line:
      DrawLine(device, static_cast<const Line&>(control), dpi);
      break;
    case ControlKind::Image:
      DrawPicture(device, room, static_cast<const Image&>(control).Picture());
      break;
    default:
      Fill(device, room, ToSystem(control.BackColor(), COLOR_BTNFACE));
      Frame(device, room, ToSystem(control.ForeColor(), COLOR_WINDOWTEXT), ThicknessOf(dpi));
  }
}

void DrawBorder(HDC device, const RECT& room, const Control& group, int dpi) {
  if (group.Kind() == ControlKind::Frame) {
    RECT edge = room;
    DrawEdge(device, &edge, EDGE_ETCHED, BF_RECT);
  } else if (static_cast<const PictureBox&>(group).Border()) {
    Frame(device, room, GetSysColor(COLOR_BTNSHADOW), ThicknessOf(dpi));
  }
}

}  // namespace

void DrawGround(HDC device, const RECT& room, const Form& form, const Control* group, int dpi) {
  Fill(device, room,
       group == nullptr ? GetSysColor(COLOR_BTNFACE) : ToSystem(group->BackColor(), COLOR_BTNFACE));
  if (group != nullptr) {
    DrawBorder(device, room, *group, dpi);
  }
  for (const Control* control : BackToFront(form)) {
    if (IsOnGround(control->Kind()) && control->Container() == group && control->Visible() &&
        IsNeeded(device, *control, dpi)) {
      Draw(device, *control, dpi);
    }
  }
}

}  // namespace lexmill::platform::win32
