// SPDX-License-Identifier: MIT
#include "platform/controls/window_order.h"

#include <algorithm>

#include "platform/controls/control_kinds.h"

namespace lexmill::platform {

std::vector<Control*> TabOrder(const Form& form) {
  const auto controls = form.Controls();
  std::vector<Control*> sorted(controls.begin(), controls.end());
  std::ranges::stable_sort(sorted, {}, [](const Control* control) { return control->TabIndex(); });
  return sorted;
}

std::vector<Control*> BackToFront(const Form& form) {
  const auto order = form.FrontToBack();
  std::vector<Control*> sorted(order.rbegin(), order.rend());
  // clang can't compile the one over ranges.
  std::stable_partition(sorted.begin(), sorted.end(),
                        [](const Control* control) { return IsDrawing(control->Kind()); });
  return sorted;
}

}  // namespace lexmill::platform
