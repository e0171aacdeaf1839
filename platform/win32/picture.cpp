// SPDX-License-Identifier: MIT
#include "platform/win32/picture.h"

#include <algorithm>

#include "platform/win32/com_pointer.h"

// clang-format off
#include <shlwapi.h>
// The library's headers ask for these two without a namespace.
using std::max;
using std::min;
#include <gdiplus.h>
// clang-format on

namespace lexmill::platform::win32 {
namespace {

Gdiplus::Bitmap Read(std::string_view file) {
  const ComPointer<IStream> bytes(SHCreateMemStream(reinterpret_cast<const BYTE*>(file.data()),
                                                    static_cast<UINT>(file.size())));
  return Gdiplus::Bitmap(bytes.get());
}

void Draw(Gdiplus::Graphics& canvas, Gdiplus::Bitmap& picture, const Gdiplus::Rect& room) {
  canvas.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
  canvas.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
  canvas.DrawImage(&picture, room);
}

}  // namespace

PictureService::PictureService() {
  const Gdiplus::GdiplusStartupInput plain;
  Gdiplus::GdiplusStartup(&token_, &plain, nullptr);
}

PictureService::~PictureService() {
  Gdiplus::GdiplusShutdown(token_);
}

void DrawPicture(HDC device, const RECT& room, std::string_view file) {
  Gdiplus::Bitmap picture = Read(file);
  Gdiplus::Graphics canvas(device);
  Draw(canvas, picture, {room.left, room.top, room.right - room.left, room.bottom - room.top});
}

Icon MakeIcon(std::string_view file, int pixels) {
  Gdiplus::Bitmap picture = Read(file);
  Gdiplus::Bitmap scaled(pixels, pixels, PixelFormat32bppARGB);
  Gdiplus::Graphics canvas(&scaled);
  Draw(canvas, picture, {0, 0, pixels, pixels});
  HICON icon = nullptr;
  scaled.GetHICON(&icon);
  return Icon(icon);
}

}  // namespace lexmill::platform::win32
