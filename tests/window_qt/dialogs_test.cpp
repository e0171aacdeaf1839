// SPDX-License-Identifier: MIT
// Dialogs, answered as a user answers them.
#include <fstream>

#include <QAbstractButton>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>

#include "platform/controls/dialogs.h"
#include "platform/files/file_system.h"
#include "platform/text/text.h"
#include "tests/support/readable_text.h"
#include "tests/window_qt/window_world.h"

namespace lexmill::test {
namespace {

class Dialogs : public WindowOnScreen {
 protected:
  // Answers the next file dialog: chooses filter `filter`, from 0, types a path and confirms.
  void ChooseFile(const std::string& name, int filter = 0) {
    const QString path = QString::fromStdString((dictionaries_.Path() / name).string());
    Answer([path, filter](QWidget& dialog) {
      auto& chooser = static_cast<QFileDialog&>(dialog);
      chooser.selectNameFilter(chooser.nameFilters().at(filter));
      chooser.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
      static_cast<QDialog&>(chooser).accept();
    });
  }
  std::string Chosen(const platform::ComboBox& field) const {
    return std::filesystem::path(Readable(field.Text())).filename().string();
  }
};

TEST_F(Dialogs, OpenADictionary) {
  WriteBytes(dictionaries_.File("A.GLO"), "x");
  ChooseFile("A.GLO");
  Click("cmdOpen(0)");
  EXPECT_EQ(Chosen(frmMain::Instance().cboToDo), "A.GLO");
  EXPECT_EQ(Find<QComboBox>("cboToDo").currentText().toStdString(),
            (dictionaries_.Path() / "A.GLO").string());
}

TEST_F(Dialogs, ShowTitleAndFilters) {
  std::string title;
  std::string filters;
  Answer([&](QWidget& dialog) {
    title = dialog.windowTitle().toStdString();
    auto* choice = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
    for (int i = 0; i < choice->count(); ++i) {
      filters += choice->itemText(i).toStdString() + "\n";
    }
    static_cast<QFileDialog&>(dialog).reject();
  });
  Click("cmdSave");
  EXPECT_EQ(title, "选择已译字典的保存文件");
  EXPECT_EQ(filters,
            "文本格式文件(*.txt)\nPASSOLO字典(*.glo)\n软件语言文件(*.po;*.pot;*.ts;*.xlf)\n");
  EXPECT_EQ(Readable(frmMain::Instance().cboFinal.Text()), "");
}

TEST_F(Dialogs, ReportTheChosenFilter) {
  const std::pair<int, const char*> expected[] = {{0, "result.txt"}, {1, "result.glo"}};
  for (const auto& [filter, name] : expected) {
    ChooseFile("result", filter);
    Click("cmdSave");
    EXPECT_EQ(Chosen(frmMain::Instance().cboFinal), name);
  }
}

TEST_F(Dialogs, AddTheDefaultExtension) {
  ChooseFile("mine");
  Click("cmdPreset(3)");
  EXPECT_EQ(dictionaries_.Listing(), "mine.ini");
}

TEST_F(Dialogs, AskBeforeTheyTakeAnExistingFile) {
  WriteBytes(dictionaries_.File("mine.ini"), "kept");
  const QString path = QString::fromStdString((dictionaries_.Path() / "mine.ini").string());
  bool asked = false;
  Answer([&](QWidget& dialog) {
    auto& chooser = static_cast<QFileDialog&>(dialog);
    chooser.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
    Answer([&](QWidget& question) {
      asked = true;
      static_cast<QMessageBox&>(question).reject();
    });
    static_cast<QDialog&>(chooser).accept();
    chooser.reject();
  });
  Click("cmdPreset(3)");
  EXPECT_TRUE(asked);
  EXPECT_EQ(ReadBytes(dictionaries_.File("mine.ini")), "kept");
}

TEST_F(Dialogs, HandBackSeveralFilesAndTheReadOnlyBox) {
  WriteBytes(dictionaries_.File("a.glo"), "x");
  WriteBytes(dictionaries_.File("b.glo"), "x");
  platform::FileDialogRequest request;
  request.initialFolder = dictionaries_.File("");
  request.filters = {{u"all", u"*.*"}};
  request.multipleSelection = request.readOnlyBox = request.readOnly = true;
  Answer([](QWidget& dialog) {
    dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
        ->setText(QStringLiteral("\"a.glo\" \"b.glo\""));
    static_cast<QDialog&>(dialog).accept();
  });
  const auto answer = platform::ShowOpenDialog(request);
  ASSERT_TRUE(answer.has_value());
  EXPECT_EQ(answer->path, platform::FromUtf8(dictionaries_.Path().string()) +
                              std::u16string(u"\0a.glo\0b.glo", 12));
  EXPECT_TRUE(answer->readOnly);
}

TEST_F(Dialogs, ListAndOpenFilesWhoseNamesAreNoUtf8) {
  const std::string bytes = Ansi("字典.glo");
  for (const std::string& name : {bytes, Ansi("字典.doc"), std::string("plain.glo")}) {
    std::ofstream(dictionaries_.Path() / name) << "x";
  }
  frmMain::Instance().cboToDo.Text(dictionaries_.File("plain.glo"));
  std::string listed;
  Answer([&](QWidget& dialog) {
    auto& names = *dialog.findChild<QListWidget*>(QStringLiteral("foreignNames"));
    for (int i = 0; i < names.count(); ++i) {
      listed += names.item(i)->text().toStdString() + "\n";
    }
    names.setCurrentRow(0);
    dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->click();
  });
  Click("cmdOpen(0)");
  EXPECT_EQ(listed, "字典.glo\n");
  EXPECT_EQ(platform::ToUtf8(frmMain::Instance().cboToDo.Text()),
            (dictionaries_.Path() / bytes).string());
  EXPECT_EQ(platform::ReadBinary(frmMain::Instance().cboToDo.Text(), 0, 1), "x");
}

TEST_F(Dialogs, PutThePathOfTheDatabaseAndTheFocusIntoItsField) {
  Click("chkSaveRefDB");
  ChooseFile("saved");
  Click("optXRefDB");
  EXPECT_EQ(Find<QLineEdit>("txtSaveRefDB").text().toStdString(),
            (dictionaries_.Path() / "saved.db").string());
  EXPECT_FALSE(Find<QAbstractButton>("optXRefDB").isChecked());
  EXPECT_EQ(shown_->focusWidget(), &Find("txtSaveRefDB"));
}

TEST_F(Dialogs, ShowAMessageAsItIs) {
  std::string shown;
  AnswerMessage(&shown, "确定");
  const auto answer = platform::ShowMessageBox(
      u"错误:1\r\n<b>a</b> & b", platform::MessageIcon::Critical, platform::MessageButtons::Ok);
  EXPECT_EQ(answer, platform::MessageAnswer::Ok);
  EXPECT_EQ(shown, "错误:1\n<b>a</b> & b");
}

}  // namespace
}  // namespace lexmill::test
