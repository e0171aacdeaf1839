// SPDX-License-Identifier: MIT
// The buttons of the window that ask for a file.
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "foundation/entry_point.h"
#include "platform/text/text.h"
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
constexpr std::int32_t kPlainTextIndex = 1;  ///< among the filters for the result
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

// The path that the user chose; empty if the dialog was cancelled.
std::u16string AskForFileToOpen(std::u16string_view title, std::u16string filters) {
  std::u16string path;
  std::u16string name;
  bool readOnly = false;
  std::int32_t filterIndex = 1;
  std::int32_t flags = 0;
  const bool chosen = GCommonDialog::ShowOpenFileDialog(
      path, name, true, false, readOnly, true, filters, filterIndex, {}, title, {}, kOwner, flags);
  return chosen ? path : std::u16string();
}

// As above; `filterIndex` [in,out] is the filter to open on, and the chosen one.
std::u16string AskForFileToSave(std::u16string_view title, std::u16string filters,
                                std::int32_t& filterIndex, std::u16string_view extension = {}) {
  std::u16string path;
  std::u16string name;
  std::int32_t flags = 0;
  const bool chosen = GCommonDialog::ShowSaveFileDialog(path, name, true, filters, filterIndex, {},
                                                        title, extension, kOwner, flags);
  return chosen ? path : std::u16string();
}

bool EndsInAnyCase(std::u16string_view path, std::u16string_view extension) {
  return platform::LowerCase(path).ends_with(extension);
}

std::u16string WithExtension(const std::u16string& path, std::u16string_view extension) {
  return EndsInAnyCase(path, extension) ? path : path + std::u16string(extension);
}

// `extension` is added to a path that does not end in it.
std::u16string AskForFileToSaveAs(std::u16string_view title, std::u16string_view filter,
                                  std::u16string_view extension) {
  std::int32_t filterIndex = 1;
  const auto path =
      AskForFileToSave(title, std::u16string(filter), filterIndex, extension.substr(1));
  return path.empty() ? path : WithExtension(path, extension);
}

}  // namespace

void frmMain::TakeResultPath(std::u16string path, std::int32_t filterIndex) {
  if (!EndsInAnyCase(path, u".txt") && !EndsInAnyCase(path, u".glo")) {
    path += filterIndex == kPlainTextIndex ? u".txt" : u".glo";
  }
  modMain::AddComboHistory(cboFinal, path);
}

void frmMain::cmdOpen_Click(std::int16_t Index) {
  if (Index == 0) {
    modMain::AddComboHistory(
        cboToDo, AskForFileToOpen(u"选择未译字典",
                                  JoinFilters({kDictionaryFilter, kGlossaryFilter, kTextFilter})));
  } else {
    modMain::AddComboHistory(
        cboRefer, AskForFileToOpen(u"选择参照字典", JoinFilters({kDictionaryFilter, kDatabaseFilter,
                                                                 kGlossaryFilter, kTextFilter})));
  }
}

void frmMain::cmdSave_Click() {
  std::int32_t filterIndex = 0;
  const auto path = AskForFileToSave(u"选择已译字典的保存文件",
                                     JoinFilters({kPlainTextFilter, kGlossaryFilter}), filterIndex);
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
    const auto path = AskForFileToSaveAs(u"选择数据库的保存文件", kSavedDatabaseFilter, u".db");
    if (!path.empty()) {
      txtSaveRefDB.Text(path);
    }
  });
  IgnoreFailures([this] { txtSaveRefDB.SetFocus(); });
}

// A dropped file counts as chosen in the dialog of its box, with the first filter.
void frmMain::ConnectDrops() {
  for (platform::ComboBox* combo : {&cboToDo, &cboRefer}) {
    connections_.push_back(combo->FileDropped.Connect([combo](std::u16string_view path) {
      modMain::AddComboHistory(*combo, std::u16string(path));
    }));
  }
  connections_.push_back(cboFinal.FileDropped.Connect(
      [this](std::u16string_view path) { TakeResultPath(std::u16string(path), kPlainTextIndex); }));
}

}  // namespace lexmill
