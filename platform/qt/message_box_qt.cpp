// SPDX-License-Identifier: MIT
#include <iostream>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include "platform/controls/dialogs.h"
#include "platform/controls/program_end.h"
#include "platform/host/application.h"
#include "platform/qt/qt_text.h"

namespace lexmill::platform {
namespace {

// The plain pointer, over whatever pointer a run has set.
class PlainPointer {
 public:
  PlainPointer() { QGuiApplication::setOverrideCursor(Qt::ArrowCursor); }
  ~PlainPointer() { QGuiApplication::restoreOverrideCursor(); }
  PlainPointer(const PlainPointer&) = delete;
  PlainPointer& operator=(const PlainPointer&) = delete;
};

QMessageBox::Icon ToQt(MessageIcon icon) {
  return icon == MessageIcon::Critical ? QMessageBox::Critical : QMessageBox::Question;
}

QString LinesOf(std::u16string_view text) {
  return qt::ToQt(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

}  // namespace

MessageAnswer ShowMessageBox(std::u16string_view text, MessageIcon icon, MessageButtons buttons) {
  if (ProgramEnd::IsAsked()) {
    std::cerr << LinesOf(text).toStdString() << std::endl;
    return buttons == MessageButtons::Ok ? MessageAnswer::Ok : MessageAnswer::Cancel;
  }
  const PlainPointer pointer;
  QMessageBox box(ToQt(icon), qt::ToQt(kApplicationTitle), LinesOf(text), QMessageBox::NoButton,
                  QApplication::activeWindow());
  box.setTextFormat(Qt::PlainText);
  const auto* ok = box.addButton(qt::ToQt(u"确定"), QMessageBox::AcceptRole);
  if (buttons == MessageButtons::OkCancel) {
    box.setEscapeButton(box.addButton(qt::ToQt(u"取消"), QMessageBox::RejectRole));
  }
  box.exec();
  return buttons == MessageButtons::Ok || box.clickedButton() == ok ? MessageAnswer::Ok
                                                                    : MessageAnswer::Cancel;
}

}  // namespace lexmill::platform
