// SPDX-License-Identifier: MIT
// platform/qt: the desktop on the screen; the only folder that knows the toolkit.
// Text on its way to the toolkit and back, unit by unit.
#pragma once

#include <string>
#include <string_view>

#include <QString>
#include <QStringView>

namespace lexmill::platform::qt {

/// The same 16-bit units, whatever they are, as the toolkit's text.
[[nodiscard]] inline QString ToQt(std::u16string_view text) {
  return QStringView(text).toString();
}

/// The same 16-bit units, whatever they are, as our text.
[[nodiscard]] inline std::u16string FromQt(const QString& text) {
  return text.toStdU16String();
}

}  // namespace lexmill::platform::qt
