// SPDX-License-Identifier: MIT
// platform/controls: stands in for the desktop system; knows nothing of dictionaries.
// The orders in which a window's controls lie and are reached.
#pragma once

#include <vector>

#include "platform/controls/form.h"

namespace lexmill::platform {

/// All controls by TabIndex.
[[nodiscard]] std::vector<Control*> TabOrder(const Form& form);

/// All controls from the back to the front: first what is drawn on what lies behind it, then the
/// rest, each in the window's order.
[[nodiscard]] std::vector<Control*> BackToFront(const Form& form);

}  // namespace lexmill::platform
