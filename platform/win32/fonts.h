// SPDX-License-Identifier: MIT
// platform/win32: the desktop by native controls; with platform/host/win32 all that knows the
// system. The fonts of a window.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <type_traits>

#include "platform/controls/control.h"
#include "platform/controls/pixels.h"
#include "platform/win32/system_headers.h"

namespace lexmill::platform::win32 {

/// The desktop's font in the size that a window's places are drawn for, at the resolution of the
/// screen that the window is on. Fonts live until the second Reset after they were made, so that
/// windows can be given others meanwhile.
class FontSet {
 public:
  explicit FontSet(int dpi) { Reset(dpi); }

  /// Forgets all fonts: the resolution or the desktop's font has changed.
  void Reset(int dpi);
  [[nodiscard]] int Dpi() const { return dpi_; }

  /// A control's font.
  /// @param percent  the width of its characters, of their natural one
  [[nodiscard]] HFONT Get(const Control& control, int percent);
  /// The size in pixels of a line of text in such a font.
  [[nodiscard]] PixelSize SizeOf(const std::u16string& text, HFONT font) const;
  /// The control's font, with characters narrowed as far as `text` needs to fit into `room` pixels.
  [[nodiscard]] HFONT Fitting(const Control& control, const std::u16string& text, int room);

 private:
  struct Deleter {
    void operator()(HFONT font) const { DeleteObject(font); }
  };
  using Font = std::unique_ptr<std::remove_pointer_t<HFONT>, Deleter>;
  [[nodiscard]] Font Make(const std::u16string& face, int percent) const;

  int dpi_ = kPlainDpi;
  std::u16string desktopFace_;
  using Fonts = std::map<std::tuple<std::u16string, int>, Font>;
  Fonts fonts_;
  Fonts retired_;
};

}  // namespace lexmill::platform::win32
