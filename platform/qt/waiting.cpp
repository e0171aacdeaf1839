// SPDX-License-Identifier: MIT
#include "platform/qt/waiting.h"

#include <QCoreApplication>
#include <QEvent>

namespace lexmill::platform::qt {
namespace {

bool IsUserInput(QEvent::Type type) {
  switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
      return true;
    default:
      return false;
  }
}

class InputBarrier final : public QObject {
 public:
  bool eventFilter(QObject* watched, QEvent* event) override {
    return IsUserInput(event->type()) || QObject::eventFilter(watched, event);
  }
};

}  // namespace

// The toolkit's own flag against user input also holds back the close box, and a run whose child
// hangs has to hear that.
void RepaintWhileWaiting() {
  InputBarrier barrier;
  QCoreApplication::instance()->installEventFilter(&barrier);
  QCoreApplication::processEvents();
}

}  // namespace lexmill::platform::qt
