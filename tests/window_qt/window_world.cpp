// SPDX-License-Identifier: MIT
#include "tests/window_qt/window_world.h"

#include <filesystem>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "platform/host/application.h"
#include "platform/text/text.h"
#include "run/modMain.h"

namespace lexmill::test {

WindowOnScreen::WindowOnScreen() {
  for (const auto* program : {"batch", "sqlite"}) {
    std::filesystem::create_symlink(std::filesystem::path(LEXMILL_PROGRAMS) / program,
                                    folder_.Path() / program);
  }
  platform::SetApplicationFolder(platform::FromUtf8(folder_.Path().string()));
  Restart();
}

WindowOnScreen::~WindowOnScreen() {
  EXPECT_EQ(openAnswers_, 0) << "a dialog that the test expected did not open";
  shown_.reset();
}

void WindowOnScreen::Restart() {
  shown_.reset();
  modMain::Main();
  shown_ = std::make_unique<platform::qt::FormWindow>(frmMain::Instance().Window);
  // The end of an earlier window's loop would end each loop of a dialog until the next of a
  // program.
  QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(); });
  QCoreApplication::exec();
  shown_->activateWindow();
  Settle();
}

QWidget* WindowOnScreen::Named(const char* name) const {
  QWidget* widget = shown_->findChild<QWidget*>(QString::fromUtf8(name));
  if (widget == nullptr) {
    ADD_FAILURE() << "no widget " << name;
    std::abort();
  }
  return widget;
}

void WindowOnScreen::Click(const char* name) const {
  QTest::mouseClick(Named(name), Qt::LeftButton);
  Settle();
}

void WindowOnScreen::Type(const char* name, std::string_view text) const {
  Named(name)->setFocus();
  QTest::keyClicks(Named(name), QString::fromUtf8(text.data(), static_cast<int>(text.size())));
}

void WindowOnScreen::Press(Qt::Key key) const {
  QWidget* focus = shown_->focusWidget();
  QTest::keyClick(focus == nullptr ? shown_.get() : focus, key);
  Settle();
}

void WindowOnScreen::TypePaths(const char* toDo, const char* refer, const char* result) const {
  const auto path = [this](const char* name) { return (dictionaries_.Path() / name).string(); };
  Type("cboToDo", path(toDo));
  Type("cboRefer", path(refer));
  Type("cboFinal", path(result));
}

void WindowOnScreen::Answer(std::function<void(QWidget& dialog)> answer) {
  const QWidget* before = QApplication::activeModalWidget();
  auto* look = new QTimer(shown_.get());
  ++openAnswers_;
  QObject::connect(look, &QTimer::timeout, look, [this, before, look, answer = std::move(answer)] {
    QWidget* dialog = QApplication::activeModalWidget();
    if (dialog != nullptr && dialog != before) {
      look->deleteLater();
      look->stop();
      --openAnswers_;
      answer(*dialog);
    }
  });
  look->start(0);
}

void WindowOnScreen::AnswerMessage(std::string* shown, const std::string& button) {
  Answer([shown, button](QWidget& dialog) {
    auto& box = static_cast<QMessageBox&>(dialog);
    *shown = box.text().toStdString();
    for (QAbstractButton* candidate : box.buttons()) {
      if (candidate->text().toStdString() == button) {
        candidate->click();
        return;
      }
    }
    ADD_FAILURE() << "no button " << button;
    box.reject();
  });
}

void WindowOnScreen::Settle() {
  QCoreApplication::sendPostedEvents();
  QCoreApplication::processEvents();
}

}  // namespace lexmill::test
