// SPDX-License-Identifier: MIT
// platform/qt: the desktop on the screen; the only folder that knows the toolkit.
// Fields for texts. Each shows a control, which has to outlive it, and hands it what a user types,
// chooses or drops.
#pragma once

#include <QComboBox>
#include <QLineEdit>

#include "platform/controls/controls.h"

namespace lexmill::platform::qt {

/// Make the widget of a control, owned by `parent`, with the control's text and list.
[[nodiscard]] QLineEdit* MakeField(TextBox& box, QWidget& parent);
[[nodiscard]] QComboBox* MakeField(ComboBox& combo, QWidget& parent);

/// Bring text, limit and list to the widget. What is there already stays, with its cursor.
void ShowField(const TextBox& box, QLineEdit& field);
void ShowField(const ComboBox& combo, QComboBox& field);
void ShowList(const ComboBox& combo, QComboBox& field);

}  // namespace lexmill::platform::qt
