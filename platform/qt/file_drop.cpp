// SPDX-License-Identifier: MIT
#include "platform/qt/file_drop.h"

#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QStringList>
#include <QUrl>

#include "platform/controls/entered_path.h"
#include "platform/qt/qt_text.h"

namespace lexmill::platform::qt {
namespace {

// The paths of the files that are dragged; none if what is dragged is no file here.
QStringList DraggedFiles(const QDropEvent& event) {
  QStringList paths;
  for (const QUrl& address : event.mimeData()->urls()) {
    if (address.isLocalFile()) {
      paths += qt::ToQt(EnteredPath(qt::FromQt(QString::fromLatin1(address.toEncoded()))));
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
    const QStringList files = DraggedFiles(event);
    if (files.isEmpty()) {
      return false;
    }
    const QString file = combo_.TakesSeveralFiles() ? files.join(QLatin1Char(';')) : files.front();
    event.acceptProposedAction();
    if (event.type() == QEvent::Drop) {
      // Who dragged it waits for this event's end, and the control may show a message.
      QMetaObject::invokeMethod(
          this, [this, file] { combo_.UserDropsFile(FromQt(file)); }, Qt::QueuedConnection);
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
