// SPDX-License-Identifier: MIT
// platform/qt: the desktop on the screen; the only folder that knows the toolkit.
// Everything that a user presses. Each shows a control, which has to outlive it, and hands it the
// user's clicks.
#pragma once

#include <QAbstractButton>

#include "platform/controls/controls.h"

namespace lexmill::platform::qt {

/// Make the widget of a control, owned by `parent`, in the control's state.
[[nodiscard]] QAbstractButton* MakeButton(CheckBox& box, QWidget& parent);
[[nodiscard]] QAbstractButton* MakeButton(Button& button, QWidget& parent);
[[nodiscard]] QAbstractButton* MakeButton(OptionButton& button, QWidget& parent);

/// Bring the state to the widget.
void ShowState(const CheckBox& box, QAbstractButton& widget);
void ShowState(const OptionButton& button, QAbstractButton& widget);
/// Brings the role to the widget: the default button stands out. Its keys are the window's matter.
void ShowRole(const Button& button, QAbstractButton& widget);

}  // namespace lexmill::platform::qt
