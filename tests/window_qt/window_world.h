// SPDX-License-Identifier: MIT
// tests/window_qt: the window through its widgets, worked as a user works it.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <QWidget>

#include "platform/qt/form_window.h"
#include "tests/support/files.h"
#include "window/frmMain.h"

namespace lexmill::test {

/// An open window whose program's folder is a fresh one with the real programs in it, and a folder
/// for dictionaries.
class WindowOnScreen : public testing::Test {
 protected:
  WindowOnScreen();
  ~WindowOnScreen() override;

  /// Starts the program anew, in the same folder.
  void Restart();

  /// The widget of that name, which is of type W.
  template <class W = QWidget>
  [[nodiscard]] W& Find(const char* name) const {
    return *static_cast<W*>(Named(name));
  }

  void Click(const char* name) const;
  /// Puts the focus into a field and types, key by key, after what is there.
  void Type(const char* name, std::string_view text) const;
  /// Presses a key where the focus is.
  void Press(Qt::Key key) const;
  /// Types the three paths: dictionaries of these names in the dictionaries' folder.
  void TypePaths(const char* toDo, const char* refer, const char* result) const;

  /// Runs `answer` with the next dialog as soon as that is open. A test failure if none opens.
  void Answer(std::function<void(QWidget& dialog)> answer);
  /// Answers the next message by the button of that text. @param shown  receives the message
  void AnswerMessage(std::string* shown, const std::string& button);
  /// Lets events come in until none is left.
  static void Settle();

  TemporaryFolder folder_;
  TemporaryFolder dictionaries_;
  std::unique_ptr<platform::qt::FormWindow> shown_;

 private:
  [[nodiscard]] QWidget* Named(const char* name) const;

  int openAnswers_ = 0;
};

}  // namespace lexmill::test
