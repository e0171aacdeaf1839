// SPDX-License-Identifier: MIT
// How the window looks, and how a user gets about in it.
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTest>

#include "tests/support/readable_text.h"
#include "tests/window_qt/window_world.h"

namespace lexmill::test {
namespace {

using Window = WindowOnScreen;

TEST_F(Window, HasItsTitleAndAFixedSize) {
  EXPECT_EQ(shown_->windowTitle().toStdString(), "Lexmill v0.14");
  EXPECT_EQ(shown_->minimumSize(), QSize(469, 322));
  EXPECT_EQ(shown_->maximumSize(), QSize(469, 322));
  EXPECT_EQ(Find("cmdStart").geometry(), QRect(216, 296, 77, 21));
  EXPECT_EQ(Find("chkrQuanSenHao").mapTo(shown_.get(), QPoint()), QPoint(8 + 244, 96 + 68 + 80));
}

// True if a user sees, and reaches with the mouse, the widget or a child of it at its middle.
bool IsOnTop(const QWidget& window, const QWidget& widget) {
  const QWidget* found = window.childAt(widget.mapTo(&window, widget.rect().center()));
  return found == &widget || widget.isAncestorOf(found);
}

TEST_F(Window, ShowsOneOfThePanelsOverTheOther) {
  EXPECT_TRUE(IsOnTop(*shown_, Find("chkaMTab")));
  EXPECT_TRUE(Find("fraOptAdv").autoFillBackground());
  Click("chkAdvMode");
  EXPECT_FALSE(Find("fraOptAdv").isVisible());
  EXPECT_TRUE(IsOnTop(*shown_, Find("lblState(2)")));
  Click("chkAdvMode");
  EXPECT_TRUE(IsOnTop(*shown_, Find("chkaMTab")));
}

TEST_F(Window, LaysLabelsUnderFields) {
  EXPECT_TRUE(IsOnTop(*shown_, Find("cboToDo")));
  for (const char* name : {"cboToDo", "cboRefer", "cboFinal"}) {
    Find(name).hide();
  }
  EXPECT_TRUE(IsOnTop(*shown_, Find("LabelDoing")));
}

TEST_F(Window, MovesTheFocusOnAfterTheOptionsButton) {
  Find("chkAdvMode").setFocus();
  Press(Qt::Key_Space);
  EXPECT_EQ(shown_->focusWidget(), &Find("cmdClose"));
}

TEST_F(Window, GoesRoundByTheTabKey) {
  Find("cboToDo").setFocus();
  const char* const expected[] = {"cmdOpen(0)",   "cboRefer",      "cmdOpen(1)",
                                  "cboFinal",     "cmdSave",       "txtLenLimit",
                                  "chkSaveRefDB", "chkNotAddANDX", "chkaUpperCase"};
  for (const char* name : expected) {
    Press(Qt::Key_Tab);
    EXPECT_EQ(shown_->focusWidget()->objectName().toStdString(), name);
  }
}

// The toolkit lets a button go a moment later, and then it is clicked.
TEST_F(Window, PressesButtonsByTheirHotKeys) {
  EXPECT_FALSE(Find<QPushButton>("cmdHelp").isDown());
  QTest::keyClick(shown_.get(), Qt::Key_H, Qt::AltModifier);
  EXPECT_TRUE(Find<QPushButton>("cmdHelp").isDown());
}

TEST_F(Window, NamesItsFieldsForThoseWhoCannotSeeThem) {
  const std::pair<const char*, const char*> expected[] = {
      {"cboToDo", "未译字典:"},
      {"cboFinal", "已译字典:"},
      {"txtSaveRefDB", "[※※]另存已净化的参照字典数据库:"},
      {"txtrAndXBK2", "[参照]带有&X译文的两边括号:"},
  };
  for (const auto& [name, label] : expected) {
    EXPECT_EQ(Find(name).accessibleName().toStdString(), label);
  }
}

TEST_F(Window, CutsNoCaptionOff) {
  for (QAbstractButton* button : shown_->findChildren<QAbstractButton*>()) {
    QStyleOptionButton option;
    option.initFrom(button);
    const bool push = qobject_cast<QPushButton*>(button) != nullptr;
    const QRect room = button->style()->subElementRect(
        push ? QStyle::SE_PushButtonContents : QStyle::SE_CheckBoxContents, &option, button);
    const int width = button->fontMetrics().size(Qt::TextShowMnemonic, button->text()).width();
    EXPECT_LE(width, room.width()) << button->text().toStdString();
  }
  for (QLabel* label : shown_->findChildren<QLabel*>()) {
    EXPECT_LE(label->sizeHint().width(), label->width()) << label->text().toStdString();
    EXPECT_LE(label->sizeHint().height(), label->height()) << label->text().toStdString();
  }
}

TEST_F(Window, StaysReadableInADarkColourScheme) {
  const QPalette light = QApplication::palette();
  QPalette dark(QColor(40, 40, 40));
  dark.setColor(QPalette::Highlight, QColor(255, 128, 0));
  QApplication::setPalette(dark);
  Settle();
  Click("chkAdvMode");
  const auto textColor = [this](const char* name) {
    return Find(name).palette().color(QPalette::WindowText);
  };
  EXPECT_EQ(textColor("lblSta1"), QColor(Qt::black));
  EXPECT_EQ(textColor("LabelWeb"), QColor(0, 0, 0xC0));
  EXPECT_EQ(textColor("lblState(0)"), QColor(0x31, 0x6A, 0xC5));
  EXPECT_EQ(textColor("lalFinal"), QColor(255, 128, 0));
  EXPECT_GT(textColor("lalUND").lightness(), 128);
  // Between the banner and the first row, where the panel itself shows.
  const QImage picture = shown_->grab().toImage();
  EXPECT_EQ(picture.pixelColor(20, 100 + 68), QColor(Qt::white));
  QApplication::setPalette(light);
}

TEST_F(Window, HandsClicksOnLabelsOn) {
  int clicks = 0;
  int doubleClicks = 0;
  auto& label = frmMain::Instance().LabelWeb;
  const auto click = label.Click.Connect([&] { ++clicks; });
  const auto doubleClick = label.DblClick.Connect([&] { ++doubleClicks; });
  Click("chkAdvMode");
  Click("LabelWeb");
  EXPECT_EQ(clicks, 1);
  QTest::mouseDClick(&Find("LabelWeb"), Qt::LeftButton);
  EXPECT_EQ(doubleClicks, 1);
  // No click: let go outside, and by another button.
  QTest::mousePress(&Find("LabelWeb"), Qt::LeftButton);
  QTest::mouseRelease(&Find("LabelWeb"), Qt::LeftButton, {}, QPoint(-20, -20));
  QTest::mouseClick(&Find("LabelWeb"), Qt::RightButton);
  EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace lexmill::test
