// SPDX-License-Identifier: MIT
#include <algorithm>

#include "foundation/cInifile.h"
#include "foundation/entry_point.h"
#include "platform/controls/desktop.h"
#include "platform/text/numbers.h"

namespace lexmill {
namespace {

constexpr std::int32_t kMarginInPixels = 4;
// Stands for a missing key: it converts to no number.
constexpr std::u16string_view kMissing = u"FAIL";

// Start and size of a window in one direction, pulled inside a screen of `screen` twips. The sums
// are wider than the values, which come from a file.
struct Extent {
  std::int64_t start;
  std::int64_t size;

  void PullIn(std::int64_t screen, std::int64_t margin) {
    start = std::max(start, margin);
    if (start + size > screen - margin) {
      start = std::max(screen - margin - size, margin);
    }
    if (start + size > screen - margin) {
      size = screen - start - margin;
    }
  }
};

}  // namespace

void cInifile::SaveFormPosition(const platform::Form& frmThis) {
  const std::u16string key = key_;
  if (!IgnoreFailures([&] { WritePosition(frmThis); })) {
    lastReturnCode_ = 0;
  }
  key_ = key;
}

void cInifile::WritePosition(const platform::Form& form) {
  const auto state = form.WindowState();
  if (state == platform::FormState::Minimised) {
    return;
  }
  Write(u"Maximised", state == platform::FormState::Maximised ? 1 : 0);
  if (state == platform::FormState::Maximised) {
    return;
  }
  Write(u"Left", form.Left());
  Write(u"Top", form.Top());
  Write(u"Width", form.Width());
  Write(u"Height", form.Height());
}

void cInifile::LoadFormPosition(platform::Form& frmThis, std::int32_t lMinWidth,
                                std::int32_t lMinHeight) {
  const std::u16string key = key_;
  const std::u16string defaultText = default_;
  default_ = kMissing;
  if (!IgnoreFailures([&] { ReadPosition(frmThis, lMinWidth, lMinHeight); })) {
    lastReturnCode_ = 0;
  }
  key_ = key;
  default_ = defaultText;
}

void cInifile::ReadPosition(platform::Form& form, std::int32_t minWidth, std::int32_t minHeight) {
  const platform::ScreenMetrics screen = platform::GetScreenMetrics();
  Extent across{Read(u"Left", form.Left()), 0};
  Extent down{Read(u"Top", form.Top()), 0};
  across.size = std::max(Read(u"Width", form.Width()), minWidth);
  down.size = std::max(Read(u"Height", form.Height()), minHeight);
  across.PullIn(screen.width, kMarginInPixels * screen.twipsPerPixelX);
  down.PullIn(screen.height, kMarginInPixels * screen.twipsPerPixelY);
  if (across.size >= minWidth && down.size >= minHeight) {
    form.Move(static_cast<std::int32_t>(across.start), static_cast<std::int32_t>(down.start),
              static_cast<std::int32_t>(across.size), static_cast<std::int32_t>(down.size));
  }
  if (Read(u"Maximised", 0) != 0) {
    form.WindowState(platform::FormState::Maximised);
  }
}

void cInifile::Write(std::u16string_view key, std::int32_t number) {
  Key(key);
  std::u16string text = platform::ToText(number);
  Value(text);
}

std::int32_t cInifile::Read(std::u16string_view key, std::int32_t otherwise) {
  Key(key);
  return CLngDefault(Value(), otherwise);
}

}  // namespace lexmill
