// SPDX-License-Identifier: MIT
#include "platform/win32/file_drop.h"

#include <string>

#include "platform/win32/wide_text.h"

namespace lexmill::platform::win32 {
namespace {

constexpr UINT kAll = 0xFFFFFFFF;

std::u16string PathOf(HDROP drop, UINT index) {
  std::wstring path(DragQueryFileW(drop, index, nullptr, 0) + 1, L'\0');
  path.resize(DragQueryFileW(drop, index, path.data(), static_cast<UINT>(path.size())));
  return FromWide(path);
}

std::u16string PathsOf(HDROP drop, bool several) {
  std::u16string paths = PathOf(drop, 0);
  const UINT count = several ? DragQueryFileW(drop, kAll, nullptr, 0) : 1;
  for (UINT i = 1; i < count; ++i) {
    paths += u';' + PathOf(drop, i);
  }
  return paths;
}

}  // namespace

void AcceptFiles(HWND window) {
  DragAcceptFiles(window, TRUE);
}

void DropFiles(ComboBox& combo, HDROP drop) {
  const std::u16string paths = PathsOf(drop, combo.TakesSeveralFiles());
  DragFinish(drop);
  combo.UserDropsFile(paths);
}

}  // namespace lexmill::platform::win32
