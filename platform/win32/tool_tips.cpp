// SPDX-License-Identifier: MIT
#include "platform/win32/tool_tips.h"

#include "platform/win32/wide_text.h"

namespace lexmill::platform::win32 {

ToolTips::ToolTips(HWND window)
    : window_(window),
      tips_(CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                            WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT, CW_USEDEFAULT,
                            CW_USEDEFAULT, CW_USEDEFAULT, window, nullptr, nullptr, nullptr)) {}

void ToolTips::Set(HWND control, const std::u16string& text) const {
  TTTOOLINFOW tool = {};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = window_;
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  const auto send = [&](UINT message) {
    SendMessageW(tips_, message, 0, reinterpret_cast<LPARAM>(&tool));
  };
  send(TTM_DELTOOLW);
  if (!text.empty()) {
    // Without a limit a tip of several words is one line, however long.
    SendMessageW(tips_, TTM_SETMAXTIPWIDTH, 0, GetSystemMetrics(SM_CXSCREEN) / 2);
    tool.lpszText = const_cast<wchar_t*>(Wide(text));  // which the window copies
    send(TTM_ADDTOOLW);
  }
}

}  // namespace lexmill::platform::win32
