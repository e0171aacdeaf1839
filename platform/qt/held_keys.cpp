// SPDX-License-Identifier: MIT
#include "platform/qt/held_keys.h"

#include <QCoreApplication>

namespace lexmill::platform::qt {
namespace {

// Sends `press` as a repeated one. @return whether somebody took it
bool SendAsRepeated(const QKeyEvent& press, QObject& receiver) {
  QKeyEvent repeated(press.type(), press.key(), press.modifiers(), press.nativeScanCode(),
                     press.nativeVirtualKey(), press.nativeModifiers(), press.text(), true,
                     static_cast<quint16>(press.count()));
  repeated.setTimestamp(press.timestamp());
  repeated.ignore();
  QCoreApplication::sendEvent(&receiver, &repeated);
  return repeated.isAccepted();
}

}  // namespace

bool HeldKeys::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyRelease) {
    const auto& release = static_cast<QKeyEvent&>(*event);
    released_ = release.key();
    releaseTime_ = release.timestamp();
  } else if (event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride) {
    const auto& press = static_cast<QKeyEvent&>(*event);
    if (IsMissed(press)) {
      const bool isTaken = SendAsRepeated(press, *watched);
      event->setAccepted(isTaken || event->type() == QEvent::KeyPress);
      return true;
    }
  }
  return QObject::eventFilter(watched, event);
}

bool HeldKeys::IsMissed(const QKeyEvent& press) const {
  return !press.isAutoRepeat() && press.key() == released_ && press.timestamp() == releaseTime_ &&
         releaseTime_ != 0;
}

}  // namespace lexmill::platform::qt
