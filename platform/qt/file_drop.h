// SPDX-License-Identifier: MIT
// platform/qt: the desktop on the screen; the only folder that knows the toolkit.
// Files that a user drops on a field.
#pragma once

#include <QComboBox>

#include "platform/controls/controls.h"

namespace lexmill::platform::qt {

/// Hands `combo` each file that is dropped on `field`, as a path; several ones as it takes them.
void TakeDroppedFiles(ComboBox& combo, QComboBox& field);

}  // namespace lexmill::platform::qt
