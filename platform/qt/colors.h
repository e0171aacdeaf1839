// SPDX-License-Identifier: MIT
// platform/qt: the desktop on the screen; the only folder that knows the toolkit.
// Colours of controls on the screen.
#pragma once

#include <QColor>
#include <QPalette>

#include "platform/controls/control.h"

namespace lexmill::platform::qt {

/// A control's colour; those of the system come from `palette`.
/// @param otherwise  what stands for kDefaultColor
[[nodiscard]] QColor ToQt(Color color, const QPalette& palette, QPalette::ColorRole otherwise);

/// A colour of the toolkit as a control's, without its transparency.
[[nodiscard]] Color FromQt(const QColor& color);

}  // namespace lexmill::platform::qt
