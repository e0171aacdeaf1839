// SPDX-License-Identifier: MIT
#include "platform/qt/ending.h"

#include <QApplication>
#include <QWidget>

#include "platform/process.h"

namespace lexmill::platform::qt {
namespace {

bool& Ending() {
  static bool ending = false;
  return ending;
}

}  // namespace

void EndProgram(Form& form) {
  Ending() = true;
  if (QWidget* dialog = QApplication::activeModalWidget()) {
    dialog->close();
  }
  form.Close();
  if (form.Busy()) {
    EndChildProcesses();
  }
}

bool IsEnding() {
  return Ending();
}

}  // namespace lexmill::platform::qt
