// SPDX-License-Identifier: MIT
// platform/win32: the desktop by native controls; with platform/host/win32 all that knows the
// system. Pictures from the bytes of a picture file.
#pragma once

#include <memory>
#include <string_view>
#include <type_traits>

#include "platform/win32/system_headers.h"

namespace lexmill::platform::win32 {

/// Lets pictures be read while it lives.
class PictureService {
 public:
  PictureService();
  ~PictureService();
  PictureService(const PictureService&) = delete;
  PictureService& operator=(const PictureService&) = delete;

 private:
  ULONG_PTR token_ = 0;
};

/// Fills `room` with the picture, at whatever scale. Draws nothing if no format knows the bytes.
void DrawPicture(HDC device, const RECT& room, std::string_view file);

struct IconDeleter {
  void operator()(HICON icon) const { DestroyIcon(icon); }
};
using Icon = std::unique_ptr<std::remove_pointer_t<HICON>, IconDeleter>;

/// The picture as an icon of that many pixels in each direction; null if no format knows the bytes.
[[nodiscard]] Icon MakeIcon(std::string_view file, int pixels);

}  // namespace lexmill::platform::win32
