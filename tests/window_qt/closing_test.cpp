// SPDX-License-Identifier: MIT
// All ways to close the window.
#include <signal.h>

#include <filesystem>
#include <functional>
#include <utility>

#include <QApplication>
#include <QTimer>

#include "platform/qt/screen.h"
#include "tests/window_qt/window_world.h"

namespace lexmill::test {
namespace {

class Closing : public WindowOnScreen {
 protected:
  Closing() {
    std::filesystem::remove(folder_.Path() / "Lexmill.ini");
    WriteBytes(dictionaries_.File("todo"), "a\ta\n");
    WriteBytes(dictionaries_.File("refer"), "a\tb\n");
  }
  // True if the window is gone and has left its settings.
  [[nodiscard]] bool IsClosed() const {
    return !shown_->isVisible() && std::filesystem::exists(folder_.Path() / "Lexmill.ini");
  }
  // Runs the message loop, with `opened` at its start, until the window closes.
  int RunLoop(const std::function<void()>& opened) {
    shown_.reset();
    return static_cast<platform::qt::Screen*>(qApp)->Run(
        []() -> platform::Form& { return frmMain::Instance().Window; }, opened);
  }
  // Makes the next run's child process say a word and then hang.
  void LetChildHang() {
    const auto batch = folder_.Path() / "batch";
    std::filesystem::remove(batch);
    WriteBytes(folder_.File("batch"), "#!/bin/sh\necho x\nexec sleep 600\n");
    std::filesystem::permissions(batch, std::filesystem::perms::owner_all);
  }
  // Starts a run and calls `act` when the third row shows that the child has said its word. No
  // message may come afterwards.
  void StartAndOnceTheChildRuns(std::function<void()> act) {
    frmMain& window = frmMain::Instance();
    window.cboToDo.Text(dictionaries_.File("todo"));
    window.cboRefer.Text(dictionaries_.File("refer"));
    window.cboFinal.Text(dictionaries_.File("final"));
    QObject::connect(&look_, &QTimer::timeout, &look_, [act = std::move(act), &window]() mutable {
      if (QWidget* message = QApplication::activeModalWidget()) {
        ADD_FAILURE() << "a message after the window was to close";
        message->close();
      } else if (act != nullptr && !window.lblState(2).Caption().empty()) {
        std::exchange(act, nullptr)();
      }
    });
    look_.start(0);
    QTimer::singleShot(0, qApp, [&window] { window.Window.UserPressesEnter(); });
  }

 private:
  QTimer look_;
};

TEST_F(Closing, ByTheCloseBoxDoesNotAsk) {
  shown_->close();
  EXPECT_TRUE(IsClosed());
}

TEST_F(Closing, ByTheEscapeKeyAsks) {
  std::string shown;
  AnswerMessage(&shown, "取消");
  Press(Qt::Key_Escape);
  EXPECT_EQ(shown, "确实要关闭吗？");
  EXPECT_TRUE(shown_->isVisible());
  AnswerMessage(&shown, "确定");
  Press(Qt::Key_Escape);
  EXPECT_TRUE(IsClosed());
}

TEST_F(Closing, WaitsForTheEndOfARun) {
  TypePaths("todo", "refer", "final");
  QTimer::singleShot(0, qApp, [this] {
    shown_->close();
    EXPECT_TRUE(shown_->isVisible());
  });
  Press(Qt::Key_Return);
  EXPECT_TRUE(IsClosed());
  EXPECT_EQ(ReadBytes(dictionaries_.File("final")), "a\tb\r\n");
}

TEST_F(Closing, BySignalEndsTheLoopAndSaves) {
  EXPECT_EQ(RunLoop([] { raise(SIGTERM); }), 0);
  EXPECT_FALSE(frmMain::Instance().Window.Visible());
  EXPECT_TRUE(std::filesystem::exists(folder_.Path() / "Lexmill.ini"));
}

TEST_F(Closing, EndsARunThatHangsAndLeavesTheEarlierResult) {
  const std::function<void()> twice = [] {
    EXPECT_FALSE(QApplication::activeWindow()->close());
    EXPECT_TRUE(frmMain::Instance().lblSummary.Caption().starts_with(u"将在完成后关闭"));
    EXPECT_FALSE(QApplication::activeWindow()->close());
  };
  LetChildHang();
  WriteBytes(dictionaries_.File("final"), "older");
  for (const auto& act : {twice, std::function<void()>([] { raise(SIGTERM); })}) {
    EXPECT_EQ(RunLoop([&] { StartAndOnceTheChildRuns(act); }), 0);
    EXPECT_EQ(ReadBytes(dictionaries_.File("final")), "older");
    EXPECT_EQ(folder_.Listing(), "Lexmill.ini POLOLID.ini batch sqlite");
    Restart();
  }
}

}  // namespace
}  // namespace lexmill::test
