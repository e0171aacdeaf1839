// SPDX-License-Identifier: MIT
// platform/qt: the desktop on the screen; the only folder that knows the toolkit.
// The program on the screen.
#pragma once

#include <functional>

#include <QApplication>
#include <QTranslator>

#include "platform/controls/form.h"
#include "platform/qt/held_keys.h"

namespace lexmill::platform::qt {

/// The toolkit's application. A failure that leaves an event's listener is shown here, and the
/// program goes on.
class Screen final : public QApplication {
 public:
  /// @param argc, argv  have to live as long as the program; the toolkit takes its options out
  Screen(int& argc, char** argv);
  ~Screen() override;

  /// Calls `open`, shows the form that it returns, which has to live until the end of this call,
  /// and runs the message loop until the form is unloaded.
  /// @param opened  called once the window is there
  /// @return the program's exit code
  [[nodiscard]] int Run(const std::function<Form&()>& open, const std::function<void()>& opened);

  bool notify(QObject* receiver, QEvent* event) override;

 private:
  void LoadTranslation();

  QTranslator translator_;
  HeldKeys heldKeys_;
};

}  // namespace lexmill::platform::qt
