// SPDX-License-Identifier: MIT
#include "platform/win32/file_drop.h"

#include <string>
#include <vector>

#include "platform/win32/wide_text.h"

namespace lexmill::platform::win32 {
namespace {

constexpr UINT kAll = 0xFFFFFFFF;

std::u16string PathOf(HDROP drop, UINT index) {
  std::wstring path(DragQueryFileW(drop, index, nullptr, 0) + 1, L'\0');
  path.resize(DragQueryFileW(drop, index, path.data(), static_cast<UINT>(path.size())));
  return FromWide(path);
}

std::vector<std::u16string> PathsOf(HDROP drop) {
  std::vector<std::u16string> paths(DragQueryFileW(drop, kAll, nullptr, 0));
  for (UINT i = 0; i < paths.size(); ++i) {
    paths[i] = PathOf(drop, i);
  }
  return paths;
}

}  // namespace

void AcceptFiles(HWND window) {
  DragAcceptFiles(window, TRUE);
}

void DropFiles(ComboBox& combo, HDROP drop) {
  const std::vector<std::u16string> paths = PathsOf(drop);
  DragFinish(drop);
  if (!paths.empty()) {
    combo.UserDropsFile(combo.TextFor(paths));
  }
}

bool PasteFiles(const ComboBox& combo, HWND typingPart) {
  if (IsClipboardFormatAvailable(CF_UNICODETEXT) != FALSE || OpenClipboard(typingPart) == FALSE) {
    return false;
  }
  HANDLE files = GetClipboardData(CF_HDROP);
  const auto paths =
      files == nullptr ? std::vector<std::u16string>() : PathsOf(static_cast<HDROP>(files));
  CloseClipboard();
  if (paths.empty()) {
    return false;
  }
  const std::u16string text = combo.TextFor(paths);
  SendMessageW(typingPart, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(Wide(text)));
  return true;
}

}  // namespace lexmill::platform::win32
