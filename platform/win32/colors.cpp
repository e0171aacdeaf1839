// SPDX-License-Identifier: MIT
#include "platform/win32/colors.h"

namespace lexmill::platform::win32 {
namespace {

// The brush of the device, in a colour.
HBRUSH BrushOf(HDC device, COLORREF color) {
  SetDCBrushColor(device, color);
  return static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
}

}  // namespace

// A colour of the system's is told by its top bit and is the number of one.
COLORREF ToSystem(Color color, int otherwise) {
  constexpr Color kSystems = 0x80000000;
  if (color == kDefaultColor) {
    return GetSysColor(otherwise);
  }
  return (color & kSystems) != 0 ? GetSysColor(static_cast<int>(color & ~kSystems)) : color;
}

void Fill(HDC device, const RECT& room, COLORREF color) {
  FillRect(device, &room, BrushOf(device, color));
}

void Frame(HDC device, RECT room, COLORREF color, int width) {
  for (int i = 0; i < width; ++i) {
    FrameRect(device, &room, BrushOf(device, color));
    InflateRect(&room, -1, -1);
  }
}

}  // namespace lexmill::platform::win32
