// SPDX-License-Identifier: MIT
// platform/controls: stands in for the desktop system; knows nothing of dictionaries.
// How those who can't see a window know its controls.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/form.h"

namespace lexmill::platform {

/// What is said for a control besides what it shows. Empty for what it says itself.
struct SpokenName {
  Control* control = nullptr;
  std::u16string name{};
  std::u16string description{};
  Control* label = nullptr;  ///< whose field the control is, or null
};

/// What a caption reads like: without the marks of its hot key, "&&" as one ampersand.
[[nodiscard]] std::u16string WithoutMarks(std::u16string_view caption);

/// Names each field after the label or box before it in the same group, by TabIndex, as the field
/// of a label directly before it; a label without a text as yet is described by the one
/// directly before it, a button "..." named by its tool tip. All others are left out.
[[nodiscard]] std::vector<SpokenName> SpokenNames(const Form& form);

}  // namespace lexmill::platform
