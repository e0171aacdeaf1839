// SPDX-License-Identifier: MIT
// platform/qt: the desktop on the screen; the only folder that knows the toolkit.
// How users get from field to field, and how those who can't see the window know them.
#pragma once

#include <memory>
#include <span>

#include "platform/controls/form.h"
#include "platform/qt/control_mirror.h"

namespace lexmill::platform::qt {

/// The widgets of a window's controls.
using Mirrors = std::span<const std::unique_ptr<ControlMirror>>;

/// The widget that shows `control`, which has to have one.
[[nodiscard]] QWidget& WidgetOf(Mirrors mirrors, const Control& control);

/// Makes the tab key go round by TabIndex.
void ChainTabOrder(const Form& form, Mirrors mirrors);

/// Lets those who can't see the window hear what the controls are called, and lets a label that is
/// directly before its field hand the focus to it.
void NameFields(const Form& form, Mirrors mirrors);

}  // namespace lexmill::platform::qt
