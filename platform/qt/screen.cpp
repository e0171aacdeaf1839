// SPDX-License-Identifier: MIT
#include "platform/qt/screen.h"

#include <array>

#include <QLibraryInfo>
#include <QSessionManager>

#include "platform/controls/failure_message.h"
#include "platform/controls/program_end.h"
#include "platform/controls/screen.h"
#include "platform/host/application.h"
#include "platform/qt/form_window.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/termination_signals.h"
#include "platform/qt/waiting.h"
#include "platform/qt/window_style.h"

namespace lexmill::platform {
bool IsScreenThere() {
  constexpr std::array kNames = {"WAYLAND_DISPLAY", "DISPLAY", "QT_QPA_PLATFORM"};
  for (const char* name : kNames) {
    if (!qEnvironmentVariableIsEmpty(name)) {
      return true;
    }
  }
  return false;
}

int RunOnScreen(int& argc, char** argv, const std::function<Form&()>& open,
                const std::function<void()>& opened) {
  return qt::Screen(argc, argv).Run(open, opened);
}

namespace qt {
namespace {

void CloseDialog() {
  if (QWidget* dialog = QApplication::activeModalWidget()) {
    dialog->close();
  }
}

}  // namespace

Screen::Screen(int& argc, char** argv) : QApplication(argc, argv) {
  setApplicationName(qt::ToQt(kApplicationTitle));
  // By this name desktops find the icon and the menu entry.
  setDesktopFileName(QStringLiteral("lexmill"));
  setStyle(new WindowStyle);
  // The end is the form's matter: a message may be shown while there is no window.
  setQuitOnLastWindowClosed(false);
  installEventFilter(&heldKeys_);
  LoadTranslation();
  SetWaiting(RepaintWhileWaiting);
}

Screen::~Screen() {
  SetWaiting({});
}

// The toolkit's dialogs in the window's language; in English where that isn't installed.
void Screen::LoadTranslation() {
  if (translator_.load(QStringLiteral("qtbase_zh_CN"),
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    installTranslator(&translator_);
  }
}

int Screen::Run(const std::function<Form&()>& open, const std::function<void()>& opened) {
  constexpr int kFailed = 1;
  Form* form = nullptr;
  if (!ShowFailureOf([&] { form = &open(); })) {
    return kFailed;
  }
  FormWindow window(*form);
  ProgramEnd end(*form, CloseDialog);
  const TerminationSignals signals([&end] { end.Ask(); });
  connect(this, &QGuiApplication::commitDataRequest, &window, [&end] { end.Ask(); });
  opened();
  return form->Visible() ? exec() : 0;
}

bool Screen::notify(QObject* receiver, QEvent* event) {
  bool handled = true;
  ShowFailureOf([&] { handled = QApplication::notify(receiver, event); });
  return handled;
}

}  // namespace qt
}  // namespace lexmill::platform
