// SPDX-License-Identifier: MIT
// platform/win32: the desktop by native controls; with platform/host/win32 all that knows the
// system. What a user is shown who stays over a control.
#pragma once

#include <string>

#include "platform/win32/system_headers.h"

namespace lexmill::platform::win32 {

/// The tool tips of one window.
class ToolTips {
 public:
  explicit ToolTips(HWND window);

  /// Shows `text` over the control's window; nothing if it is empty.
  void Set(HWND control, const std::u16string& text) const;

 private:
  HWND window_;
  HWND tips_;
};

}  // namespace lexmill::platform::win32
