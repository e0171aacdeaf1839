// SPDX-License-Identifier: MIT
// How the window looks, and how a user gets about in it.
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTest>

#include "platform/controls/contrast.h"
#include "platform/qt/colors.h"
#include "tests/support/readable_text.h"
#include "tests/window_qt/window_world.h"

namespace lexmill::test {
namespace {

using Window = WindowOnScreen;

TEST_F(Window, HasItsTitleAndAFixedSize) {
  EXPECT_EQ(shown_->windowTitle().toStdString(), "Lexmill v0.14");
  EXPECT_EQ(shown_->minimumSize(), QSize(469, 322));
  EXPECT_EQ(shown_->maximumSize(), QSize(469, 322));
  EXPECT_FALSE(shown_->windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
  EXPECT_FALSE(shown_->windowIcon().isNull());
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

TEST_F(Window, SpeaksToThoseWhoCannotSeeIt) {
  frmMain::Instance().lblState(0).Caption(u"37%");
  Find("cboFinal").setFocus();
  struct Case {
    const char* name;
    QAccessible::Role role;
    const char* says;
    const char* describes;
  };
  for (const auto& row :
       {Case{"cboFinal", QAccessible::ComboBox, "已译字典:", "Alt+F"},
        Case{"txtSaveRefDB", QAccessible::EditableText, "[※※]另存已净化的参照字典数据库:", ""},
        Case{"txtrAndXBK2", QAccessible::EditableText, "[参照]带有&X译文的两边括号:", ""},
        Case{"optXRefDB", QAccessible::CheckBox, "选择数据库的保存文件", "选择数据库的保存文件"},
        Case{"chkaMTab", QAccessible::CheckBox, "[两者]处理\\t分隔后有快捷键的字串", ""},
        Case{"cmdOpen(1)", QAccessible::Button, "打开(2)...", "Ctrl+R"},
        Case{"lblState(0)", QAccessible::StaticText, "37%", "参照字典净化:"}}) {
    SCOPED_TRACE(row.name);
    const QAccessibleInterface& seen = *QAccessible::queryAccessibleInterface(&Find(row.name));
    EXPECT_EQ(seen.role(), row.role);
    EXPECT_EQ(seen.text(QAccessible::Name).toStdString(), row.says);
    EXPECT_EQ(seen.text(QAccessible::Description).toStdString(), row.describes);
  }
  const auto state = [this](const char* name) {
    return QAccessible::queryAccessibleInterface(&Find(name))->state();
  };
  EXPECT_TRUE(state("chkaMTab").checked);
  EXPECT_FALSE(state("chkaUpperCase").checked);
  EXPECT_TRUE(state("cmdStart").disabled);
  EXPECT_TRUE(state("cboFinal").focused);
  EXPECT_EQ(Find<QComboBox>("cboFinal").lineEdit()->accessibleName().toStdString(), "已译字典:");
}

// Expects that every caption is whole in its place, and a label's text in its container.
void ExpectWholeCaptions(const QWidget& window) {
  for (QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
    QStyleOptionButton option;
    option.initFrom(button);
    const bool push = qobject_cast<QPushButton*>(button) != nullptr;
    const QRect room = button->style()->subElementRect(
        push ? QStyle::SE_PushButtonContents : QStyle::SE_CheckBoxContents, &option, button);
    const int width = button->fontMetrics().size(Qt::TextShowMnemonic, button->text()).width();
    EXPECT_LE(width, room.width()) << button->text().toStdString();
  }
  for (QLabel* label : window.findChildren<QLabel*>()) {
    EXPECT_TRUE(label->accessibleName().isEmpty()) << label->text().toStdString();
    EXPECT_LE(label->sizeHint().width(), label->width()) << label->text().toStdString();
    EXPECT_LE(label->sizeHint().height(), label->height()) << label->text().toStdString();
    EXPECT_GE(label->x(), 0) << label->text().toStdString();
    EXPECT_LE(label->geometry().right(), label->parentWidget()->width());
  }
}

TEST_F(Window, CutsNoCaptionOffWhateverFontTheDesktopChanges) {
  const QFont before = QApplication::font();
  ExpectWholeCaptions(*shown_);
  for (const char* family : {"DejaVu Serif", "DejaVu Sans Mono"}) {
    QFont wide(QString::fromUtf8(family), 20, QFont::Bold);
    QApplication::setFont(wide);
    Settle();
    SCOPED_TRACE(family);
    EXPECT_EQ(Find("cmdStart").fontInfo().pixelSize(), 12);
    EXPECT_TRUE(Find("cmdStart").fontInfo().bold());
    ExpectWholeCaptions(*shown_);
  }
  QApplication::setFont(before);
}

TEST_F(Window, EndsALineThatIsFarTooLongInDots) {
  platform::Label& line = frmMain::Instance().lblSummary;
  line.Caption(std::u16string(200, u'字'));
  const auto& shown = Find<QLabel>("lblSummary");
  EXPECT_TRUE(shown.text().endsWith(QStringLiteral("…")));
  EXPECT_LE(shown.geometry().right(), shown.parentWidget()->width());
  EXPECT_EQ(shown.accessibleName().size(), 200);
  line.Caption(u"字");
  EXPECT_EQ(shown.text().toStdString(), "字");
}

class InDarkColours : public Window {
 protected:
  InDarkColours() {
    QPalette dark(QColor(40, 40, 40));
    dark.setColor(QPalette::Highlight, QColor(20, 60, 140));
    QApplication::setPalette(dark);
    Settle();
  }
  ~InDarkColours() override { QApplication::setPalette(light_); }
  /// The greatest contrast of a pixel of the widget with the window's background.
  double Contrast(const char* name) const {
    const QImage picture = Find(name).grab().toImage();
    double most = 1;
    for (int i = 0; i < picture.height(); ++i) {
      most = std::max(most,
                      platform::Contrast(platform::qt::FromQt(picture.pixelColor(7, i)), 0x282828));
    }
    return most;
  }

 private:
  QPalette light_ = QApplication::palette();
};

TEST_F(InDarkColours, StaysReadable) {
  Click("chkAdvMode");
  const auto textColor = [this](const char* name) {
    return Find(name).palette().color(QPalette::WindowText);
  };
  EXPECT_EQ(textColor("lblSta1"), QColor(Qt::black));
  EXPECT_EQ(textColor("LabelWeb"), QColor(0, 0, 0xC0));
  EXPECT_EQ(textColor("lblState(0)"), QColor(0x31, 0x6A, 0xC5));
  EXPECT_GE(platform::Contrast(platform::qt::FromQt(textColor("lalFinal")), 0x282828), 4.5);
  EXPECT_GT(textColor("lalUND").lightness(), 128);
  // Between the banner and the first row, where the panel itself shows.
  const QImage picture = shown_->grab().toImage();
  EXPECT_EQ(picture.pixelColor(20, 100 + 68), QColor(Qt::white));
}

TEST_F(InDarkColours, ShowsBoxesAndWhatIsPressed) {
  EXPECT_GE(Contrast("chkaUpperCase"), 2.9);
  const QImage pressed = Find("chkAdvMode").grab().toImage();
  Click("chkAdvMode");
  const QImage free = Find("chkAdvMode").grab().toImage();
  EXPECT_GT(pressed.pixelColor(10, 3).blueF(), free.pixelColor(10, 3).blueF() + 0.05F);
}

TEST_F(Window, KeepsTheColourLaidDownInALightScheme) {
  EXPECT_EQ(Find("lalFinal").palette().color(QPalette::WindowText),
            QApplication::palette().color(QPalette::Highlight));
}

// A key that is held down sends presses of the time of the release before them, some of them
// marked as repeated.
TEST_F(Window, PressesNothingByAKeyThatIsHeldDown) {
  int presses = 0;
  const auto press = frmMain::Instance().cmdHelp.Click.Connect([&] { ++presses; });
  auto& button = Find<QPushButton>("cmdHelp");
  button.setFocus();
  button.setDefault(true);
  const auto send = [&](QEvent::Type type, quint64 time, bool isMarked) {
    QKeyEvent event(type, Qt::Key_Return, Qt::NoModifier, {}, isMarked);
    event.setTimestamp(time);
    event.setAccepted(type == QEvent::KeyPress);
    QCoreApplication::sendEvent(&button, &event);
    return event.isAccepted();
  };
  for (const quint64 time : {40, 80}) {
    send(QEvent::KeyRelease, time, false);
    EXPECT_TRUE(send(QEvent::ShortcutOverride, time, false)) << "and becomes no shortcut";
    send(QEvent::KeyPress, time, false);
    send(QEvent::KeyPress, time, true);
  }
  EXPECT_EQ(presses, 0);
  send(QEvent::KeyPress, 90, false);
  EXPECT_EQ(presses, 1);
}

TEST_F(Window, ReachesEverythingByItsKeys) {
  for (const auto& [name, key] :
       {std::pair{"cboToDo", Qt::Key_U}, {"cboRefer", Qt::Key_R}, {"cboFinal", Qt::Key_F}}) {
    QTest::keyClick(shown_.get(), key, Qt::AltModifier);
    EXPECT_EQ(shown_->focusWidget(), &Find(name));
    EXPECT_TRUE(Find(name).toolTip().startsWith(QStringLiteral("Alt+"))) << name;
  }
  QTest::keyClick(shown_.get(), Qt::Key_O, Qt::AltModifier);
  EXPECT_FALSE(Find("fraOptAdv").isVisible());
  int presses = 0;
  frmMain& window = frmMain::Instance();
  const auto count = [&presses] { ++presses; };
  const auto toDo = window.cmdOpen(0).Click.Connect(count);
  const auto refer = window.cmdOpen(1).Click.Connect(count);
  const auto save = window.cmdSave.Click.Connect(count);
  const auto help = window.Window.HelpWanted.Connect(count);
  const auto pressAll = [this] {
    for (const auto key : {Qt::Key_O, Qt::Key_R, Qt::Key_S}) {
      QTest::keyClick(shown_.get(), key, Qt::ControlModifier);
    }
    QTest::keyClick(shown_.get(), Qt::Key_F1);
  };
  pressAll();
  EXPECT_EQ(presses, 4);
  window.cmdOpen(0).Visible(false);
  window.cmdOpen(1).Visible(false);
  window.cmdSave.Visible(false);
  window.Window.Busy(true);
  pressAll();
  EXPECT_EQ(presses, 4) << "all of them are dead during a run";
  window.Window.Busy(false);
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
