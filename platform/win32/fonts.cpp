// SPDX-License-Identifier: MIT
#include "platform/win32/fonts.h"

#include <algorithm>
#include <utility>

#include "platform/controls/label_fit.h"
#include "platform/win32/wide_text.h"

namespace lexmill::platform::win32 {
namespace {

// The places of a window are drawn for Chinese characters of that size, on a screen without scale.
constexpr int kFontPixels = 12;

std::u16string DesktopFace() {
  NONCLIENTMETRICSW metrics = {};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
  return FromWide(metrics.lfMessageFont.lfFaceName);
}

// Work on the screen's device with a font chosen.
class Measuring {
 public:
  explicit Measuring(HFONT font) : device_(GetDC(nullptr)), before_(SelectObject(device_, font)) {}
  ~Measuring() {
    SelectObject(device_, before_);
    ReleaseDC(nullptr, device_);
  }
  Measuring(const Measuring&) = delete;
  Measuring& operator=(const Measuring&) = delete;

  [[nodiscard]] HDC Device() const { return device_; }

 private:
  HDC device_;
  HGDIOBJ before_;
};

}  // namespace

void FontSet::Reset(int dpi) {
  dpi_ = dpi;
  desktopFace_ = DesktopFace();
  retired_ = std::exchange(fonts_, {});
}

HFONT FontSet::Get(const Control& control, int percent) {
  const std::u16string& face = control.FontName().empty() ? desktopFace_ : control.FontName();
  Font& font = fonts_[{face, percent}];
  if (font == nullptr) {
    font = Make(face, percent);
  }
  return font.get();
}

FontSet::Font FontSet::Make(const std::u16string& face, int percent) const {
  LOGFONTW wanted = {};
  wanted.lfHeight = -MulDiv(kFontPixels, dpi_, kPlainDpi);
  // Where the desktop's font has no Chinese characters the system takes one that has.
  wanted.lfCharSet = face == desktopFace_ ? GB2312_CHARSET : DEFAULT_CHARSET;
  wanted.lfQuality = CLEARTYPE_QUALITY;
  std::copy_n(Wide(face), std::min<std::size_t>(face.size(), LF_FACESIZE - 1), wanted.lfFaceName);
  Font natural(CreateFontIndirectW(&wanted));
  if (percent == kNaturalWidth) {
    return natural;
  }
  TEXTMETRICW metrics = {};
  GetTextMetricsW(Measuring(natural.get()).Device(), &metrics);
  wanted.lfWidth = MulDiv(metrics.tmAveCharWidth, percent, kNaturalWidth);
  return Font(CreateFontIndirectW(&wanted));
}

PixelSize FontSet::SizeOf(const std::u16string& text, HFONT font) const {
  const Measuring measuring(font);
  SIZE size = {};
  GetTextExtentPoint32W(measuring.Device(), Wide(text), static_cast<int>(text.size()), &size);
  TEXTMETRICW metrics = {};
  GetTextMetricsW(measuring.Device(), &metrics);
  return {.width = size.cx, .height = metrics.tmHeight};
}

HFONT FontSet::Fitting(const Control& control, const std::u16string& text, int room) {
  const int percent =
      FittingWidth(room, [&](int narrowed) { return SizeOf(text, Get(control, narrowed)).width; });
  return Get(control, percent);
}

}  // namespace lexmill::platform::win32
