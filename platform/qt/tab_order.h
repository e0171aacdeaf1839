// SPDX-License-Identifier: MIT
// platform/qt: the desktop on the screen; the only folder that knows the toolkit.
// How users get from field to field, and how those who can't see the window know them.
#pragma once

#include <memory>
#include <span>

#include "platform/qt/control_mirror.h"

namespace lexmill::platform::qt {

/// The widgets of a window's controls.
using Mirrors = std::span<const std::unique_ptr<ControlMirror>>;

/// Makes the tab key go round by TabIndex.
void ChainTabOrder(Mirrors mirrors);

/// Gives each field that has no caption the name of the label or box that stands before it in the
/// same group, by TabIndex, and makes it the field of a label that stands directly before it. A
/// label without a text as yet is described by the one directly before it, a button "..." named by
/// its tool tip.
void NameFields(Mirrors mirrors);

}  // namespace lexmill::platform::qt
