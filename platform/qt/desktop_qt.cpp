// SPDX-License-Identifier: MIT
#include "platform/controls/desktop.h"

#include <array>
#include <utility>

#include <QApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QKeyEvent>
#include <QScreen>
#include <QUrl>
#include <QWidget>

#include "platform/controls/pixels.h"
#include "platform/qt/qt_text.h"
#include "platform/text/text.h"

namespace lexmill::platform {
namespace {

// The keys that a key string can name.
constexpr std::array kNamedKeys = {
    std::pair(std::u16string_view(u"{tab}"), Qt::Key_Tab),
    std::pair(std::u16string_view(u"{enter}"), Qt::Key_Return),
    std::pair(std::u16string_view(u"{esc}"), Qt::Key_Escape),
};

void Press(Qt::Key key, QWidget& window) {
  QWidget* focus = window.focusWidget();
  QWidget& receiver = focus == nullptr ? window : *focus;
  QCoreApplication::postEvent(&receiver, new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier));
  QCoreApplication::postEvent(&receiver, new QKeyEvent(QEvent::KeyRelease, key, Qt::NoModifier));
}

// A path byte for byte: a name that is no text has an address all the same.
QUrl AddressOf(std::u16string_view target) {
  if (!QFileInfo::exists(qt::ToQt(target))) {
    return QUrl(qt::ToQt(target), QUrl::StrictMode);
  }
  const QString path = QFileInfo(qt::ToQt(target)).absoluteFilePath();
  return QUrl::fromEncoded(
      "file://" + QByteArray::fromStdString(ToUtf8(qt::FromQt(path))).toPercentEncoding("/"));
}

}  // namespace

void DoEvents() {
  QCoreApplication::processEvents();
}

void SetMousePointer(MousePointer pointer) {
  while (QGuiApplication::overrideCursor() != nullptr) {
    QGuiApplication::restoreOverrideCursor();
  }
  if (pointer == MousePointer::Hourglass) {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  }
}

// The keys come in after what is going on, and in no window if none is active.
void SendKeys(std::u16string_view keys) {
  QWidget* window = QApplication::activeWindow();
  if (window == nullptr) {
    return;
  }
  const auto name = LowerCase(keys);
  for (const auto& [known, key] : kNamedKeys) {
    if (name == known) {
      QMetaObject::invokeMethod(
          window, [key = key, window] { Press(key, *window); }, Qt::QueuedConnection);
    }
  }
}

ScreenMetrics GetScreenMetrics() {
  const QSize pixels = QGuiApplication::primaryScreen()->size();
  return {.width = ToTwips(pixels.width()), .height = ToTwips(pixels.height())};
}

void ShellOpen(std::u16string_view target) {
  QDesktopServices::openUrl(AddressOf(target));
}

}  // namespace lexmill::platform
