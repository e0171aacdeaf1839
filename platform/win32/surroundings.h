// SPDX-License-Identifier: MIT
// platform/win32: the desktop by native controls; with platform/host/win32 all that knows the
// system. What all controls of a window share.
#pragma once

#include <functional>

#include "platform/controls/form.h"
#include "platform/win32/fonts.h"
#include "platform/win32/tool_tips.h"

namespace lexmill::platform::win32 {

struct Surroundings {
  Form& form;
  HWND window;  ///< the form's own
  FontSet& fonts;
  ToolTips& tips;
  std::function<void()> rearrange{};     ///< a control has another container or place in an order
  std::function<void()> showEnabled{};   ///< a control can be worked, or no longer
  std::function<void()> restoreFocus{};  ///< the control with the focus may have come back
};

}  // namespace lexmill::platform::win32
