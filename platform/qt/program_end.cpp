// SPDX-License-Identifier: MIT
#include "platform/qt/program_end.h"

#include <QApplication>
#include <QWidget>

namespace lexmill::platform::qt {
namespace {

bool& Asked() {
  static bool asked = false;
  return asked;
}

}  // namespace

ProgramEnd::~ProgramEnd() {
  Asked() = false;
}

void ProgramEnd::Ask() {
  Asked() = true;
  if (QWidget* dialog = QApplication::activeModalWidget()) {
    dialog->close();
  }
  form_.Close();
  if (form_.Busy()) {
    form_.CloseInsisted.Raise();
  }
}

bool ProgramEnd::IsAsked() {
  return Asked();
}

}  // namespace lexmill::platform::qt
