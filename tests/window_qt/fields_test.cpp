// SPDX-License-Identifier: MIT
// What a user types, checks, chooses and drops.
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QUrl>
#include <QWheelEvent>

#include "tests/support/readable_text.h"
#include "tests/window_qt/window_world.h"

namespace lexmill::test {
namespace {

class Fields : public WindowOnScreen {
 protected:
  // Drops `mime` on the text part of a path field.
  static void Drop(QComboBox& field, QMimeData& mime) {
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(field.lineEdit(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({5, 5}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(field.lineEdit(), &drop);
    Settle();
  }
};

TEST_F(Fields, EnableStartAtTheKeystroke) {
  const auto& start = Find("cmdStart");
  Type("cboToDo", "a");
  Type("cboRefer", "b");
  EXPECT_FALSE(start.isEnabled());
  Type("cboFinal", "c");
  EXPECT_TRUE(start.isEnabled());
  Press(Qt::Key_Backspace);
  EXPECT_FALSE(start.isEnabled());
}

TEST_F(Fields, KeepWhatIsTypedWhateverTheListHolds) {
  frmMain::Instance().cboToDo.AddItem(u"/home/long.glo", 0);
  Type("cboToDo", "/home/L");
  EXPECT_EQ(Readable(frmMain::Instance().cboToDo.Text()), "/home/L");
  EXPECT_EQ(Find<QComboBox>("cboToDo").currentText().toStdString(), "/home/L");
  // Typing in the middle leaves the cursor there.
  Press(Qt::Key_Home);
  Type("cboToDo", "xy");
  EXPECT_EQ(Readable(frmMain::Instance().cboToDo.Text()), "xy/home/L");
}

TEST_F(Fields, TakeNoMoreThanTheirLimit) {
  Find<QLineEdit>("txtLenLimit").clear();
  Type("txtLenLimit", "1234567890");
  EXPECT_EQ(Find<QLineEdit>("txtLenLimit").text().toStdString(), "123456789");
  EXPECT_EQ(Readable(frmMain::Instance().txtLenLimit.Text()), "123456789");
}

TEST_F(Fields, ShowThePresets) {
  Click("cmdPreset(0)");
  EXPECT_EQ(Find<QLineEdit>("txtLenLimit").text().toStdString(), "999999999");
  EXPECT_TRUE(Find<QCheckBox>("chkaMTab").isChecked());
  Click("cmdPreset(1)");
  EXPECT_EQ(Find<QLineEdit>("txtLenLimit").text().toStdString(), "50");
  EXPECT_EQ(Find<QLineEdit>("txtrAndXBK1").text().toStdString(), "\\(");
  EXPECT_FALSE(Find<QCheckBox>("chkaMTab").isChecked());
}

TEST_F(Fields, FollowTheBoxThatTheyDependOn) {
  const auto expectEnabled = [this](std::initializer_list<const char*> names, bool enabled) {
    for (const char* name : names) {
      EXPECT_EQ(Find(name).isEnabled(), enabled) << name;
    }
  };
  const auto ofHotKeys = {"txtrAndXBK1", "txtrAndXBK2", "txttAndXBK1",
                          "txttAndXBK2", "chkrAndXEER", "chkNotAddANDX"};
  expectEnabled(ofHotKeys, true);
  Click("chkaAndX");
  expectEnabled(ofHotKeys, false);
  expectEnabled({"txtSaveRefDB", "optXRefDB"}, false);
  Click("chkSaveRefDB");
  expectEnabled({"txtSaveRefDB", "optXRefDB"}, true);
}

TEST_F(Fields, ShowAGreyedBoxAndUncheckItByAClick) {
  frmMain::Instance().chkaMTab.Value(2);
  EXPECT_EQ(Find<QCheckBox>("chkaMTab").checkState(), Qt::PartiallyChecked);
  Click("chkaMTab");
  EXPECT_EQ(frmMain::Instance().chkaMTab.Value(), 0);
  EXPECT_EQ(Find<QCheckBox>("chkaMTab").checkState(), Qt::Unchecked);
}

TEST_F(Fields, OfferEarlierPathsAfterARestart) {
  frmMain::Instance().cboToDo.AddItem(u"/旧/older.glo", 0);
  frmMain::Instance().cboToDo.AddItem(u"/旧/newer.glo", 0);
  shown_->close();
  Restart();
  auto& field = Find<QComboBox>("cboToDo");
  EXPECT_EQ(field.count(), 2);
  EXPECT_EQ(field.currentText().toStdString(), "");
  Type("cboRefer", "b");
  Type("cboFinal", "c");
  field.setFocus();
  Press(Qt::Key_Down);
  Press(Qt::Key_Down);
  EXPECT_EQ(Readable(frmMain::Instance().cboToDo.Text()), "/旧/older.glo");
  EXPECT_TRUE(Find("cmdStart").isEnabled());
}

TEST_F(Fields, MakeAPathOfWhatIsPasted) {
  QGuiApplication::clipboard()->setText(QStringLiteral("file:///tmp/%E5%AD%97.glo\n"));
  frmMain::Instance().txtSaveRefDB.Enabled(true);
  for (const char* name : {"cboToDo", "txtSaveRefDB", "txtrAndXBK1"}) {
    Find(name).setFocus();
    QTest::keySequence(&Find(name), QKeySequence::SelectAll);
    QTest::keySequence(&Find(name), QKeySequence::Paste);
  }
  EXPECT_EQ(Readable(frmMain::Instance().cboToDo.Text()), "/tmp/字.glo");
  EXPECT_EQ(Find<QComboBox>("cboToDo").currentText().toStdString(), "/tmp/字.glo");
  EXPECT_EQ(Find<QLineEdit>("txtSaveRefDB").text().toStdString(), "/tmp/字.glo");
  EXPECT_EQ(Readable(frmMain::Instance().txtrAndXBK1.Text()), "file:///tmp/%E5%AD%97.glo\n");
}

TEST_F(Fields, KeepTheirPathWhateverTheWheelDoes) {
  auto& field = Find<QComboBox>("cboRefer");
  frmMain::Instance().cboRefer.AddItem(u"/earlier.glo", 0);
  Type("cboRefer", "/typed.glo");
  for (QWidget* under : {static_cast<QWidget*>(&field), static_cast<QWidget*>(field.lineEdit())}) {
    QWheelEvent turn({5, 5}, under->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(under, &turn);
  }
  EXPECT_EQ(Readable(frmMain::Instance().cboRefer.Text()), "/typed.glo");
}

TEST_F(Fields, TakeADroppedFileAsChosen) {
  QMimeData mime;
  mime.setUrls({QUrl(QStringLiteral("https://lexmill.example/x")),
                QUrl(QStringLiteral("file:///tmp/a%20%E5%AD%97.glo"))});
  Drop(Find<QComboBox>("cboRefer"), mime);
  EXPECT_EQ(Readable(frmMain::Instance().cboRefer.Text()), "/tmp/a 字.glo");
  EXPECT_EQ(Readable(frmMain::Instance().cboRefer.List(0)), "/tmp/a 字.glo");

  mime.setUrls({QUrl(QStringLiteral("file:///tmp/a")), QUrl(QStringLiteral("file:///tmp/b"))});
  Drop(Find<QComboBox>("cboRefer"), mime);
  EXPECT_EQ(Readable(frmMain::Instance().cboRefer.Text()), "/tmp/a;/tmp/b");
  Drop(Find<QComboBox>("cboToDo"), mime);
  EXPECT_EQ(Readable(frmMain::Instance().cboToDo.Text()), "/tmp/a");
}

TEST_F(Fields, TakeDroppedTextAsTyped) {
  QMimeData mime;
  mime.setText(QStringLiteral("/tmp/b.glo"));
  Drop(Find<QComboBox>("cboFinal"), mime);
  EXPECT_EQ(Readable(frmMain::Instance().cboFinal.Text()), "/tmp/b.glo");
  EXPECT_EQ(frmMain::Instance().cboFinal.ListCount(), 0U);
}

}  // namespace
}  // namespace lexmill::test
