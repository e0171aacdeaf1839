// SPDX-License-Identifier: MIT
// The buttons of the window that ask for a file.
#include <algorithm>
#include <array>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "foundation/entry_point.h"
#include "platform/controls/dialogs.h"
#include "platform/files/file_system.h"
#include "platform/host/host_path.h"
#include "platform/text/text.h"
#include "run/shared/run_state.h"
#include "window/GCommonDialog.h"
#include "window/frmMain.h"
#include "window/path_history.h"

namespace lexmill {
namespace {

// The dialogs belong to the active window, which is this one.
constexpr std::int32_t kOwner = 0;

constexpr std::u16string_view kDictionaryFilter =
    u"PASSOLO字典/点睛文本(*.glo;*.a.txt;*.u.txt)|*.glo;*.txt";
constexpr std::u16string_view kDatabaseFilter = u"已净化数据库(*.db)|*.db";
constexpr std::u16string_view kGlossaryFilter = u"PASSOLO字典(*.glo)|*.glo";
constexpr std::u16string_view kTextFilter = u"点睛文本(*.a.txt;*.u.txt)|*.txt";
constexpr std::u16string_view kPlainTextFilter = u"文本格式文件(*.txt)|*.txt";
constexpr std::u16string_view kCatalogFilter =
    u"软件语言文件(*.po;*.pot;*.ts;*.xlf)|*.po;*.pot;*.ts;*.xlf;*.xliff";
constexpr std::u16string_view kReferenceFilter =
    u"软件语言文件(*.po;*.ts;*.xlf;*.tmx;*.csv)|*.po;*.ts;*.xlf;*.xliff;*.tmx;*.csv;*.tsv";
// Among the filters for the result:
constexpr std::int32_t kPlainTextIndex = 1;
constexpr std::int32_t kCatalogIndex = 3;
constexpr std::u16string_view kSavedDatabaseFilter = u"数据库文件(*.db)|*.db";
constexpr std::u16string_view kSettingsFilter = u"配置文件(*.ini)|*.ini";
constexpr std::u16string_view kAllFilesFilter = u"所有文件(*.*)|*.*";

std::u16string JoinFilters(std::initializer_list<std::u16string_view> filters) {
  std::u16string list;
  for (const auto filter : filters) {
    if (!list.empty()) {
      list += u'\0';
    }
    list += filter;
  }
  return list;
}

// The folder of the path that a field holds, if it is there; empty otherwise. A bare name lies in
// the program's folder.
std::u16string StartFolder(std::u16string_view present) {
  if (present.empty()) {
    return {};
  }
  const platform::FileSystemObject files;
  const std::u16string folder = files.GetParentFolderName(present);
  if (folder.empty()) {
    return TheRun().AppPath;
  }
  return files.FolderExists(folder) ? folder : std::u16string();
}

// `completed` if the user may mean that file, else nothing: what a dialog has asked about is the
// name as it was chosen.
std::u16string Confirmed(std::u16string_view chosen, const std::u16string& completed) {
  if (completed == chosen || !platform::FileSystemObject().FileExists(completed)) {
    return completed;
  }
  const auto answer =
      platform::ShowMessageBox(u"文件已经存在，要替换它吗？\r\n" + completed,
                               platform::MessageIcon::Question, platform::MessageButtons::OkCancel);
  return answer == platform::MessageAnswer::Ok ? completed : std::u16string();
}

// The path that the user chose; empty if the dialog was cancelled.
// @param present  the path that the dialog's field holds, where it has one
std::u16string AskForFileToOpen(std::u16string_view title, std::u16string filters,
                                std::u16string_view present = {}) {
  std::u16string path;
  std::u16string name;
  bool readOnly = false;
  std::int32_t filterIndex = 1;
  std::int32_t flags = 0;
  const bool chosen = GCommonDialog::ShowOpenFileDialog(path, name, true, false, readOnly, true,
                                                        filters, filterIndex, StartFolder(present),
                                                        title, {}, kOwner, flags);
  return chosen ? path : std::u16string();
}

// As above; `filterIndex` [in,out] is the filter to open on, and the chosen one.
std::u16string AskForFileToSave(std::u16string_view title, std::u16string filters,
                                std::int32_t& filterIndex, std::u16string_view present,
                                std::u16string_view extension = {}) {
  std::u16string path;
  std::u16string name;
  std::int32_t flags = 0;
  const bool chosen =
      GCommonDialog::ShowSaveFileDialog(path, name, true, filters, filterIndex,
                                        StartFolder(present), title, extension, kOwner, flags);
  return chosen ? path : std::u16string();
}

bool EndsInAnyCase(std::u16string_view path, std::u16string_view extension) {
  return platform::LowerCase(path).ends_with(extension);
}

bool IsNamedAsCatalog(std::u16string_view path) {
  constexpr std::array<std::u16string_view, 5> kExtensions{u".po", u".pot", u".ts", u".xlf",
                                                           u".xliff"};
  return std::ranges::any_of(
      kExtensions, [&](std::u16string_view extension) { return EndsInAnyCase(path, extension); });
}

// The extension of the file's name, with its point; empty if it has none.
std::u16string_view ExtensionOf(std::u16string_view path) {
  const std::u16string_view name = platform::FileName(path);
  const std::size_t point = name.rfind(u'.');
  return point == std::u16string_view::npos ? std::u16string_view() : name.substr(point);
}

std::u16string WithExtension(const std::u16string& path, std::u16string_view extension) {
  return EndsInAnyCase(path, extension) ? path : path + std::u16string(extension);
}

// `extension` is added to a path that does not end in it.
std::u16string AskForFileToSaveAs(std::u16string_view title, std::u16string_view filter,
                                  std::u16string_view extension, std::u16string_view present = {}) {
  std::int32_t filterIndex = 1;
  const auto path =
      AskForFileToSave(title, std::u16string(filter), filterIndex, present, extension.substr(1));
  return path.empty() ? path : Confirmed(path, WithExtension(path, extension));
}

}  // namespace

void frmMain::TakeResultPath(const std::u16string& path, std::int32_t filterIndex) {
  const bool isCatalog = filterIndex == kCatalogIndex;
  const bool isComplete = EndsInAnyCase(path, u".txt") || EndsInAnyCase(path, u".glo") ||
                          (isCatalog && IsNamedAsCatalog(path));
  const std::u16string toDo = cboToDo.Text();
  const std::u16string extension(isCatalog                        ? ExtensionOf(toDo)
                                 : filterIndex == kPlainTextIndex ? u".txt"
                                                                  : u".glo");
  modMain::AddComboHistory(cboFinal, Confirmed(path, isComplete ? path : path + extension));
}

void frmMain::cmdOpen_Click(std::int16_t Index) {
  if (Index == 0) {
    modMain::AddComboHistory(
        cboToDo, AskForFileToOpen(
                     u"选择未译字典",
                     JoinFilters({kDictionaryFilter, kGlossaryFilter, kTextFilter, kCatalogFilter}),
                     cboToDo.Text()));
  } else {
    modMain::AddComboHistory(
        cboRefer, AskForFileToOpen(u"选择参照字典",
                                   JoinFilters({kDictionaryFilter, kDatabaseFilter, kGlossaryFilter,
                                                kTextFilter, kReferenceFilter}),
                                   cboRefer.Text()));
  }
}

void frmMain::cmdSave_Click() {
  std::int32_t filterIndex = 0;
  const auto path = AskForFileToSave(
      u"选择已译字典的保存文件", JoinFilters({kPlainTextFilter, kGlossaryFilter, kCatalogFilter}),
      filterIndex, cboFinal.Text());
  if (!path.empty()) {
    TakeResultPath(path, filterIndex);
  }
}

void frmMain::cmdPreset_Click(std::int16_t Index) {
  switch (Index) {
    case 0:
      CfgLoadMaxToCtrl();
      break;
    case 1:
      CfgLoadMinToCtrl();
      break;
    case 2:
      LoadPresetFile();
      break;
    default:
      SavePresetFile();
      break;
  }
}

void frmMain::LoadPresetFile() {
  const auto path = AskForFileToOpen(u"将配置文件的内容读取到控件",
                                     JoinFilters({kSettingsFilter, kAllFilesFilter}));
  if (!path.empty()) {
    CfgLoadIniToCtrl(path);
  }
}

void frmMain::SavePresetFile() {
  const auto path = AskForFileToSaveAs(u"将控件的内容保存到配置文件", kSettingsFilter, u".ini");
  if (!path.empty()) {
    CfgSaveCtrlToIni(path);
  }
}

void frmMain::optXRefDB_Click() {
  IgnoreFailures([this] {
    optXRefDB.Value(false);
    const auto path = AskForFileToSaveAs(u"选择数据库的保存文件", kSavedDatabaseFilter, u".db",
                                         txtSaveRefDB.Text());
    if (!path.empty()) {
      txtSaveRefDB.Text(path);
    }
  });
  IgnoreFailures([this] { txtSaveRefDB.SetFocus(); });
}

// A dropped file counts as chosen in the dialog of its box, with the first filter, a catalog with
// the filter of its own.
void frmMain::TakeDroppedFile(platform::ComboBox& combo, const std::u16string& path) {
  if (platform::FileSystemObject().FolderExists(path)) {
    platform::ShowMessageBox(u"这是文件夹，请拖放一个文件:\r\n" + path,
                             platform::MessageIcon::Critical, platform::MessageButtons::Ok);
  } else if (&combo == &cboFinal) {
    TakeResultPath(path, IsNamedAsCatalog(path) ? kCatalogIndex : kPlainTextIndex);
  } else {
    modMain::AddComboHistory(combo, path);
  }
}

void frmMain::ConnectDrops() {
  for (platform::ComboBox* combo : {&cboToDo, &cboRefer, &cboFinal}) {
    connections_.push_back(combo->FileDropped.Connect([this, combo](std::u16string_view path) {
      TakeDroppedFile(*combo, std::u16string(path));
    }));
  }
}

}  // namespace lexmill
