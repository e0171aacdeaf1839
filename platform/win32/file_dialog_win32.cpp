// SPDX-License-Identifier: MIT
#include <string>
#include <vector>

#include "platform/controls/dialogs.h"
#include "platform/controls/program_end.h"
#include "platform/host/host_path.h"
#include "platform/win32/com_pointer.h"
#include "platform/win32/wide_text.h"

// clang-format off
#include <shlobj.h>
// clang-format on

namespace lexmill::platform {
namespace {

using win32::ComPointer;
using win32::Wide;

constexpr DWORD kReadOnlyBox = 1;  ///< the box's number in the dialog

// The folder of the process, put back at the end: a dialog goes to the folder that it shows.
class KeptFolder {
 public:
  KeptFolder() : folder_(GetCurrentDirectoryW(0, nullptr), L'\0') {
    GetCurrentDirectoryW(static_cast<DWORD>(folder_.size()), folder_.data());
  }
  ~KeptFolder() { SetCurrentDirectoryW(folder_.c_str()); }
  KeptFolder(const KeptFolder&) = delete;
  KeptFolder& operator=(const KeptFolder&) = delete;

 private:
  std::wstring folder_;
};

void SetFilters(IFileDialog& dialog, const FileDialogRequest& request) {
  std::vector<COMDLG_FILTERSPEC> filters;
  for (const FileFilter& filter : request.filters) {
    filters.push_back({Wide(filter.description), Wide(filter.patterns)});
  }
  if (!filters.empty()) {
    dialog.SetFileTypes(static_cast<UINT>(filters.size()), filters.data());
    dialog.SetFileTypeIndex(static_cast<UINT>(request.filterIndex > 0 ? request.filterIndex : 1));
  }
}

// Without a folder to start in the dialog opens where the last one was.
void SetFolder(IFileDialog& dialog, const std::u16string& path) {
  void* found = nullptr;
  if (!path.empty() &&
      SUCCEEDED(SHCreateItemFromParsingName(Wide(path), nullptr, __uuidof(IShellItem), &found))) {
    const ComPointer<IShellItem> folder(static_cast<IShellItem*>(found));
    dialog.SetFolder(folder.get());
  }
}

DWORD OptionsOf(const FileDialogRequest& request) {
  constexpr DWORD kAlways = FOS_FORCEFILESYSTEM | FOS_NOCHANGEDIR | FOS_PATHMUSTEXIST;
  return kAlways | (request.fileMustExist ? FOS_FILEMUSTEXIST : 0U) |
         (request.overwritePrompt ? FOS_OVERWRITEPROMPT : 0U) |
         (request.multipleSelection ? FOS_ALLOWMULTISELECT : 0U);
}

// What the user may add to a dialog's own parts; null if this system's dialogs have no room for it.
ComPointer<IFileDialogCustomize> AddReadOnlyBox(IFileDialog& dialog,
                                                const FileDialogRequest& request) {
  void* found = nullptr;
  if (!request.readOnlyBox ||
      FAILED(dialog.QueryInterface(__uuidof(IFileDialogCustomize), &found))) {
    return nullptr;
  }
  ComPointer<IFileDialogCustomize> parts(static_cast<IFileDialogCustomize*>(found));
  parts->AddCheckButton(kReadOnlyBox, L"以只读方式打开", request.readOnly ? TRUE : FALSE);
  return parts;
}

bool IsReadOnly(IFileDialogCustomize* parts) {
  BOOL checked = FALSE;
  if (parts != nullptr) {
    parts->GetCheckButtonState(kReadOnlyBox, &checked);
  }
  return checked != FALSE;
}

void SetUp(IFileDialog& dialog, const FileDialogRequest& request) {
  dialog.SetTitle(Wide(request.title));
  DWORD options = 0;
  dialog.GetOptions(&options);
  constexpr DWORD kAsked = FOS_OVERWRITEPROMPT | FOS_FILEMUSTEXIST;
  dialog.SetOptions((options & ~kAsked) | OptionsOf(request));
  SetFilters(dialog, request);
  SetFolder(dialog, request.initialFolder);
  if (!request.fileName.empty()) {
    dialog.SetFileName(Wide(request.fileName));
  }
  if (!request.defaultExtension.empty()) {
    dialog.SetDefaultExtension(Wide(request.defaultExtension));
  }
}

std::u16string PathOf(IShellItem& item) {
  wchar_t* text = nullptr;
  if (FAILED(item.GetDisplayName(SIGDN_FILESYSPATH, &text))) {
    return {};
  }
  std::u16string path = win32::FromWide(text);
  CoTaskMemFree(text);
  return path;
}

std::vector<std::u16string> PathsOf(IFileOpenDialog& dialog) {
  IShellItemArray* array = nullptr;
  if (FAILED(dialog.GetResults(&array))) {
    return {};
  }
  const ComPointer<IShellItemArray> chosen(array);
  DWORD count = 0;
  chosen->GetCount(&count);
  std::vector<std::u16string> paths;
  for (DWORD i = 0; i < count; ++i) {
    IShellItem* item = nullptr;
    if (SUCCEEDED(chosen->GetItemAt(i, &item))) {
      paths.push_back(PathOf(*ComPointer<IShellItem>(item)));
    }
  }
  return paths;
}

std::vector<std::u16string> PathsOf(IFileSaveDialog& dialog) {
  IShellItem* item = nullptr;
  if (FAILED(dialog.GetResult(&item))) {
    return {};
  }
  return {PathOf(*ComPointer<IShellItem>(item))};
}

// One path as it is; of several the folder and each name, with a NUL between two.
std::u16string JoinPaths(const std::vector<std::u16string>& paths) {
  if (paths.size() == 1) {
    return paths.front();
  }
  const std::u16string_view first = paths.front();
  std::u16string joined(first.substr(0, first.size() - FileName(first).size() - 1));
  for (const std::u16string& path : paths) {
    joined += u'\0';
    joined += FileName(path);
  }
  return joined;
}

template <class Dialog>
std::optional<FileDialogAnswer> Ask(const CLSID& kind, const FileDialogRequest& request) {
  const KeptFolder folder;
  const auto dialog = win32::MakeObject<Dialog>(kind);
  if (dialog == nullptr || ProgramEnd::IsAsked()) {
    return std::nullopt;
  }
  SetUp(*dialog, request);
  const auto parts = AddReadOnlyBox(*dialog, request);
  if (FAILED(dialog->Show(request.overActiveWindow ? GetActiveWindow() : nullptr))) {
    return std::nullopt;
  }
  const auto paths = PathsOf(*dialog);
  if (paths.empty()) {
    return std::nullopt;
  }
  UINT filter = 1;
  dialog->GetFileTypeIndex(&filter);
  FileDialogAnswer answer;
  answer.path = JoinPaths(paths);
  answer.filterIndex = static_cast<std::int32_t>(filter);
  answer.readOnly = IsReadOnly(parts.get());
  return answer;
}

}  // namespace

std::optional<FileDialogAnswer> ShowOpenDialog(const FileDialogRequest& request) {
  return Ask<IFileOpenDialog>(CLSID_FileOpenDialog, request);
}

std::optional<FileDialogAnswer> ShowSaveDialog(const FileDialogRequest& request) {
  return Ask<IFileSaveDialog>(CLSID_FileSaveDialog, request);
}

}  // namespace lexmill::platform
