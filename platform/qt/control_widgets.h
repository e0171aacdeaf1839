// SPDX-License-Identifier: MIT
// platform/qt: the desktop on the screen; the only folder that knows the toolkit.
// A widget for a control of any kind.
#pragma once

#include <QWidget>

#include "platform/controls/control.h"

namespace lexmill::platform::qt {

/// Makes the widget that shows `control`, wired to it, as a child of `parent`, which owns it. The
/// control has to outlive it.
[[nodiscard]] QWidget* MakeWidget(Control& control, QWidget& parent);

/// Brings what a kind has of its own to `widget`, which MakeWidget made for `control`. Fields and
/// buttons keep the system's colours.
void ShowOwnProperty(Control& control, ControlProperty what, QWidget& widget);

}  // namespace lexmill::platform::qt
