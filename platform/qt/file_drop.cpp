// SPDX-License-Identifier: MIT
#include "platform/qt/file_drop.h"

#include <string>
#include <vector>

#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QUrl>

#include "platform/controls/entered_path.h"
#include "platform/qt/qt_text.h"

namespace lexmill::platform::qt {
namespace {

// The paths of the files that are dragged; none if what is dragged is no file here.
std::vector<std::u16string> DraggedFiles(const QDropEvent& event) {
  std::vector<std::u16string> paths;
  for (const QUrl& address : event.mimeData()->urls()) {
    if (address.isLocalFile()) {
      paths.push_back(EnteredPath(FromQt(QString::fromLatin1(address.toEncoded()))));
    }
  }
  return paths;
}

// A field takes dropped text by itself; a file would come in as its address.
class FileDropFilter final : public QObject {
 public:
  FileDropFilter(ComboBox& combo, QObject& parent) : QObject(&parent), combo_(combo) {}

  bool eventFilter(QObject* watched, QEvent* event) override {
    switch (event->type()) {
      case QEvent::DragEnter:
      case QEvent::DragMove:
      case QEvent::Drop:
        return TakeFile(static_cast<QDropEvent&>(*event));
      default:
        return QObject::eventFilter(watched, event);
    }
  }

 private:
  bool TakeFile(QDropEvent& event) {
    const std::vector<std::u16string> files = DraggedFiles(event);
    if (files.empty()) {
      return false;
    }
    event.acceptProposedAction();
    if (event.type() == QEvent::Drop) {
      // Who dragged it waits for this event's end, and the control may show a message.
      QMetaObject::invokeMethod(
          this, [this, file = combo_.TextFor(files)] { combo_.UserDropsFile(file); },
          Qt::QueuedConnection);
    }
    return true;
  }

  ComboBox& combo_;
};

}  // namespace

void TakeDroppedFiles(ComboBox& combo, QComboBox& field) {
  auto* filter = new FileDropFilter(combo, field);
  field.setAcceptDrops(true);
  field.installEventFilter(filter);
  field.lineEdit()->installEventFilter(filter);
}

}  // namespace lexmill::platform::qt
