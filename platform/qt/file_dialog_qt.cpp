// SPDX-License-Identifier: MIT
#include <algorithm>

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLayout>

#include "platform/controls/dialogs.h"
#include "platform/controls/program_end.h"
#include "platform/qt/foreign_names.h"
#include "platform/qt/qt_text.h"

namespace lexmill::platform {
namespace {

using qt::FromQt;
using qt::ToQt;

// The folder that the next dialog opens in if its caller names none.
QString& LastFolder() {
  static QString folder = QDir::homePath();
  return folder;
}

// A filter as the toolkit writes it. Its pattern "*.*" is only for names with a point.
QString NameFilter(const FileFilter& filter) {
  QStringList patterns = ToQt(filter.patterns).split(u';', Qt::SkipEmptyParts);
  patterns.replaceInStrings(QStringLiteral("*.*"), QStringLiteral("*"));
  return ToQt(filter.description) + QStringLiteral(" (") + patterns.join(u' ') +
         QStringLiteral(")");
}

void SetFilters(QFileDialog& dialog, const FileDialogRequest& request) {
  QStringList filters;
  for (const FileFilter& filter : request.filters) {
    filters.append(NameFilter(filter));
  }
  dialog.setNameFilters(filters);
  if (request.filterIndex > 0 && request.filterIndex <= filters.size()) {
    dialog.selectNameFilter(filters[request.filterIndex - 1]);
  }
}

// The chosen filter, from 1. The toolkit reports it as what it shows, without the patterns.
std::int32_t ChosenFilter(const QFileDialog& dialog, const FileDialogRequest& request) {
  const std::u16string shown = FromQt(dialog.selectedNameFilter());
  const auto found = std::ranges::find(request.filters, shown, &FileFilter::description);
  return found == request.filters.end()
             ? 1
             : static_cast<std::int32_t>(found - request.filters.begin()) + 1;
}

QFileDialog::FileMode OpenMode(const FileDialogRequest& request) {
  if (request.multipleSelection) {
    return QFileDialog::ExistingFiles;
  }
  return request.fileMustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile;
}

void SetUp(QFileDialog& dialog, const FileDialogRequest& request) {
  dialog.setObjectName(QStringLiteral("fileDialog"));
  dialog.setWindowTitle(ToQt(request.title));
  // The toolkit's own dialog is the same on every desktop, matches patterns without case and
  // reports the chosen filter.
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setOption(QFileDialog::DontConfirmOverwrite, !request.overwritePrompt);
  dialog.setDirectory(request.initialFolder.empty() ? LastFolder() : ToQt(request.initialFolder));
  SetFilters(dialog, request);
  dialog.setDefaultSuffix(ToQt(request.defaultExtension));
  if (!request.fileName.empty()) {
    dialog.selectFile(ToQt(request.fileName));
  }
}

QCheckBox* AddReadOnlyBox(QFileDialog& dialog, const FileDialogRequest& request) {
  auto* box = new QCheckBox(ToQt(u"以只读方式打开"), &dialog);
  box->setChecked(request.readOnly);
  box->setVisible(request.readOnlyBox);
  if (request.readOnlyBox) {
    dialog.layout()->addWidget(box);
  }
  return box;
}

// One path as it is; of several the folder and each name, with a NUL between two.
QString JoinPaths(const QStringList& paths) {
  if (paths.size() == 1) {
    return paths.front();
  }
  QString joined = QFileInfo(paths.front()).absolutePath();
  for (const QString& path : paths) {
    joined += QChar::Null + QFileInfo(path).fileName();
  }
  return joined;
}

QWidget* ParentOf(const FileDialogRequest& request) {
  return request.overActiveWindow ? QApplication::activeWindow() : nullptr;
}

std::optional<FileDialogAnswer> Ask(QFileDialog& dialog, const FileDialogRequest& request) {
  if (ProgramEnd::IsAsked()) {
    return std::nullopt;
  }
  SetUp(dialog, request);
  const QCheckBox* readOnly = AddReadOnlyBox(dialog, request);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
    return std::nullopt;
  }
  LastFolder() = dialog.directory().absolutePath();
  FileDialogAnswer answer;
  answer.path = FromQt(JoinPaths(dialog.selectedFiles()));
  answer.filterIndex = ChosenFilter(dialog, request);
  answer.readOnly = readOnly->isChecked();
  return answer;
}

}  // namespace

std::optional<FileDialogAnswer> ShowOpenDialog(const FileDialogRequest& request) {
  qt::OpenDialog dialog(ParentOf(request));
  dialog.setFileMode(OpenMode(request));
  auto answer = Ask(dialog, request);
  if (const auto path = dialog.ForeignChoice(); answer && !path.empty()) {
    answer->path = path;
  }
  return answer;
}

std::optional<FileDialogAnswer> ShowSaveDialog(const FileDialogRequest& request) {
  QFileDialog dialog(ParentOf(request));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  return Ask(dialog, request);
}

}  // namespace lexmill::platform
