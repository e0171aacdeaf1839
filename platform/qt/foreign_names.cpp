// SPDX-License-Identifier: MIT
#include "platform/qt/foreign_names.h"

#include <algorithm>

#include <QDialogButtonBox>
#include <QDir>
#include <QFileSystemModel>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>

#include "platform/files/file_system.h"
#include "platform/host/host_file.h"
#include "platform/host/host_path.h"
#include "platform/qt/qt_text.h"
#include "platform/text/ansi_text.h"
#include "platform/text/text.h"

namespace lexmill::platform::qt {
namespace {

constexpr int kRows = 3;  ///< that show at a time

QLineEdit& NameEdit(const QFileDialog& dialog) {
  return *dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
}

// The files of `folder` whose names the toolkit can't hold.
std::vector<std::u16string> NamesIn(const std::u16string& folder) {
  std::vector<std::u16string> names = platform::NamesIn(HostPath(folder));
  std::erase_if(names, [&](const std::u16string& name) {
    return std::ranges::none_of(name, IsSurvivingByte) ||
           !FileSystemObject().FileExists(WithSeparator(folder) + name);
  });
  std::ranges::sort(names);
  return names;
}

}  // namespace

OpenDialog::OpenDialog(QWidget* parent)
    : QFileDialog(parent),
      title_(new QLabel(ToQt(u"名字不是 UTF-8 的文件:"), this)),
      names_(new QListWidget(this)) {
  // The toolkit's own, in which the list has a place.
  setOption(QFileDialog::DontUseNativeDialog);
  title_->setBuddy(names_);
  names_->setObjectName(QStringLiteral("foreignNames"));
  names_->setFixedHeight(kRows * names_->fontMetrics().lineSpacing() + 2 * names_->frameWidth());
  layout()->addWidget(title_);
  layout()->addWidget(names_);
  connect(this, &QFileDialog::directoryEntered, this, &OpenDialog::ListNames);
  connect(this, &QFileDialog::filterSelected, this, &OpenDialog::ListNames);
  connect(this, &QFileDialog::currentChanged, names_, &QListWidget::clearSelection);
  connect(&NameEdit(*this), &QLineEdit::textEdited, names_, &QListWidget::clearSelection);
  connect(names_, &QListWidget::itemSelectionChanged, this, &OpenDialog::TakeChoice);
  connect(names_, &QListWidget::itemActivated, this, &OpenDialog::accept);
}

std::u16string OpenDialog::ForeignChoice() const {
  const auto chosen = names_->selectedItems();
  return chosen.empty() ? std::u16string() : FromQt(chosen.front()->data(Qt::UserRole).toString());
}

void OpenDialog::accept() {
  if (ForeignChoice().empty()) {
    QFileDialog::accept();
  } else {
    done(QDialog::Accepted);
  }
}

void OpenDialog::showEvent(QShowEvent* event) {
  QFileDialog::showEvent(event);
  ListNames();
}

void OpenDialog::ListNames() {
  names_->clear();
  const std::u16string folder = FromQt(directory().absolutePath());
  const QStringList patterns = findChild<QFileSystemModel*>()->nameFilters();
  for (const std::u16string& name : NamesIn(folder)) {
    const QString shown = ToQt(FromAnsi(ToUtf8(name)));
    if (QDir::match(patterns, shown)) {
      auto* item = new QListWidgetItem(shown, names_);
      item->setData(Qt::UserRole, ToQt(WithSeparator(folder) + name));
    }
  }
  title_->setVisible(names_->count() > 0);
  names_->setVisible(names_->count() > 0);
}

// The toolkit finds no file of the shown name, and disables its button.
void OpenDialog::TakeChoice() {
  if (const auto chosen = names_->selectedItems(); !chosen.empty()) {
    NameEdit(*this).setText(chosen.front()->text());
    findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->setEnabled(true);
  }
}

}  // namespace lexmill::platform::qt
