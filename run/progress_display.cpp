// SPDX-License-Identifier: MIT
// The members of frmMain that show how far a run has come.
#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "foundation/entry_point.h"
#include "platform/controls/desktop.h"
#include "platform/files/file_system.h"
#include "platform/text/numbers.h"
#include "platform/text/text.h"
#include "window/frmMain.h"

namespace lexmill {
namespace {

constexpr platform::Color kFinishedColor = 0xEFD3C2;
constexpr std::int64_t kKilobyte = 1024;

// Controls whose names begin so are those that a user gives input with.
bool IsInput(std::u16string_view name) {
  constexpr std::array<std::u16string_view, 5> kPrefixes = {u"cbo", u"chk", u"txt", u"cmd", u"lal"};
  const auto prefix = platform::LowerCase(name.substr(0, 3));
  return std::ranges::find(kPrefixes, prefix) != kPrefixes.end();
}

}  // namespace

void frmMain::UpdateStateLabel(std::int16_t i, std::int32_t c, std::u16string f) {
  std::u16string text = u"时间: " + platform::FormatGrouped(c) + u"ms";
  if (!f.empty()) {
    IgnoreFailures([&] {
      f = platform::FormatGrouped(platform::FileSystemObject().FileSize(f) / kKilobyte) + u"KB";
    });
    text += u" 大小: " + f;
  }
  IgnoreFailures([&] { lblState(i).Caption(text); });
  IgnoreFailures([&] { lblState(i).BackColor(kFinishedColor); });
  IgnoreFailures([&] { shpState(i).BackColor(kFinishedColor); });
  IgnoreFailures([&] { lblState(i).ForeColor(platform::kBlack); });
  IgnoreFailures([] { platform::DoEvents(); });
}

void frmMain::SetControlsVisible(bool visible) {
  for (platform::Control* control : Window.Controls()) {
    if (IsInput(control->Name())) {
      control->Visible(visible);
    }
  }
  if (chkAdvMode.Value() != 0) {
    fraOptAdv.Visible(visible);
  }
}

}  // namespace lexmill
