// SPDX-License-Identifier: MIT
// Whole runs, from the Enter key to the finished rows.
#include <QApplication>
#include <QLabel>
#include <QTimer>

#include "tests/support/readable_text.h"
#include "tests/window_qt/window_world.h"

namespace lexmill::test {
namespace {

class Run : public WindowOnScreen {
 protected:
  Run() {
    WriteBytes(dictionaries_.File("todo"), Ansi("&Open...\t&Open...\n"));
    WriteBytes(dictionaries_.File("refer"), Ansi("Open\t打开(&O)\n"));
    TypePaths("todo", "refer", "final");
  }
  // Runs `look` in the middle of the next run, when the cleared window gets its events.
  static void During(std::function<void()> look) { QTimer::singleShot(0, qApp, std::move(look)); }
  std::string Result() const { return FromAnsiBytes(ReadBytes(dictionaries_.File("final"))); }
};

TEST_F(Run, GoesFromTheEnterKeyToFourFinishedRows) {
  Press(Qt::Key_Return);
  EXPECT_EQ(Result(), "&Open...\t打开(&O)...\n");
  const QImage picture = shown_->grab().toImage();
  for (const char* row : {"(0)", "(1)", "(2)", "(3)"}) {
    const auto& label = Find<QLabel>((std::string("lblState") + row).c_str());
    EXPECT_TRUE(label.text().startsWith(QStringLiteral("时间: "))) << row;
    const auto& shape = Find((std::string("shpState") + row).c_str());
    const QPoint inside = shape.mapTo(shown_.get(), QPoint(3, 3));
    EXPECT_EQ(picture.pixelColor(inside), QColor(0xC2, 0xD3, 0xEF)) << row;
  }
  EXPECT_FALSE(Find("fraOptAdv").isVisible());
  EXPECT_TRUE(Find("cboToDo").isVisible());
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(Run, LeavesNothingToPressMeanwhile) {
  bool looked = false;
  During([&] {
    looked = true;
    for (const char* name : {"cboToDo", "cmdStart", "cmdClose", "chkaMTab", "txtLenLimit"}) {
      EXPECT_FALSE(Find(name).isVisible()) << name;
    }
    EXPECT_TRUE(Find("picState").isVisible());
    EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
    // Neither starts a second run nor asks whether to close.
    Press(Qt::Key_Return);
    Press(Qt::Key_Escape);
  });
  Press(Qt::Key_Return);
  EXPECT_TRUE(looked);
  EXPECT_EQ(Result(), "&Open...\t打开(&O)...\n");
}

TEST_F(Run, GivesTheFocusBackWhereItWas) {
  Find("chkAdvMode").setFocus();
  Press(Qt::Key_Space);
  Find("cboRefer").setFocus();
  Press(Qt::Key_Return);
  EXPECT_EQ(shown_->focusWidget(), &Find("cboRefer"));
}

TEST_F(Run, ShowsWhatFails) {
  std::filesystem::remove(dictionaries_.Path() / "refer");
  std::string shown;
  During([&] { AnswerMessage(&shown, "确定"); });
  Press(Qt::Key_Return);
  EXPECT_EQ(shown,
            "错误:1\n不能检测出“未译字典”或“参照字典”的文件格式\n"
            "源代码位置: Form 'frmMain' -> 'cmdStart_Click'");
  EXPECT_TRUE(Find("cmdStart").isVisible());
}

}  // namespace
}  // namespace lexmill::test
