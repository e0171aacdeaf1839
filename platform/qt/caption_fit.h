// SPDX-License-Identifier: MIT
// platform/qt: the desktop on the screen; the only folder that knows the toolkit.
// Captions in places that were drawn for one font, shown in whatever font the desktop has.
#pragma once

#include <QAbstractButton>

namespace lexmill::platform::qt {

/// Narrows the characters of `widget`, down to kNarrowest and not below, so that `text` takes no
/// more than `room` pixels; gives them their natural width where that is enough. Hot key marks of
/// `text` take no room. @return true if the text fits
bool NarrowInto(QWidget& widget, const QString& text, int room);

/// Makes the caption of a button or check box fit its place.
void FitCaption(QAbstractButton& button);

}  // namespace lexmill::platform::qt
