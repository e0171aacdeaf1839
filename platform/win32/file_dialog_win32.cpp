// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <memory>
#include <string>

#include "platform/controls/dialogs.h"
#include "platform/controls/program_end.h"
#include "platform/win32/dialog_owner.h"
#include "platform/win32/wide_text.h"

// clang-format off
#include <commdlg.h>
// clang-format on

namespace lexmill::platform {
namespace {

using win32::Wide;

// Enough for several files, whose folder the system writes once.
constexpr std::size_t kAnswerUnits = 0x8000;
using AnswerBuffer = std::array<wchar_t, kAnswerUnits>;

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

// The folder that the next dialog opens in if its caller names none; empty for the system's choice.
std::u16string& LastFolder() {
  static std::u16string folder;
  return folder;
}

// The filters as the system reads them: both texts of each with a NUL after it, and one at the end.
std::u16string ListOf(const std::vector<FileFilter>& filters) {
  std::u16string list;
  for (const FileFilter& filter : filters) {
    list += filter.description + u'\0' + filter.patterns + u'\0';
  }
  return list;
}

DWORD FlagsOf(const FileDialogRequest& request) {
  const auto flagIf = [](bool set, DWORD flag) { return set ? flag : 0; };
  return OFN_EXPLORER | OFN_NOCHANGEDIR | flagIf(request.fileMustExist, OFN_FILEMUSTEXIST) |
         flagIf(request.overwritePrompt, OFN_OVERWRITEPROMPT) |
         flagIf(request.multipleSelection, OFN_ALLOWMULTISELECT) |
         flagIf(!request.readOnlyBox, OFN_HIDEREADONLY) | flagIf(request.readOnly, OFN_READONLY);
}

// What the user has chosen: one path, or a folder and names, up to two NULs.
std::u16string PathsIn(const AnswerBuffer& buffer, bool several) {
  const std::wstring_view all(buffer.data(), buffer.size());
  const std::wstring_view end(L"\0", several ? 2 : 1);
  return win32::FromWide(all.substr(0, all.find(end)));
}

// The system's form of a request, and what it points to.
class DialogOrder {
 public:
  explicit DialogOrder(const FileDialogRequest& request)
      : filters_(ListOf(request.filters)),
        folder_(request.initialFolder.empty() ? LastFolder() : request.initialFolder) {
    std::copy_n(Wide(request.fileName), std::min(request.fileName.size(), kAnswerUnits - 1),
                buffer_.data());
    order_.lStructSize = sizeof order_;
    order_.hwndOwner = request.overActiveWindow ? win32::DialogOwner() : nullptr;
    order_.lpstrFilter = Wide(filters_);
    order_.nFilterIndex = static_cast<DWORD>(std::max(request.filterIndex, 1));
    order_.lpstrFile = buffer_.data();
    order_.nMaxFile = static_cast<DWORD>(buffer_.size());
    order_.lpstrInitialDir = folder_.empty() ? nullptr : Wide(folder_);
    order_.lpstrTitle = Wide(request.title);
    order_.lpstrDefExt =
        request.defaultExtension.empty() ? nullptr : Wide(request.defaultExtension);
    order_.Flags = FlagsOf(request);
  }
  DialogOrder(const DialogOrder&) = delete;
  DialogOrder& operator=(const DialogOrder&) = delete;

  [[nodiscard]] OPENFILENAMEW& Order() { return order_; }

  [[nodiscard]] FileDialogAnswer Answer() const {
    FileDialogAnswer answer;
    answer.path = PathsIn(buffer_, (order_.Flags & OFN_ALLOWMULTISELECT) != 0);
    answer.filterIndex = static_cast<std::int32_t>(order_.nFilterIndex);
    answer.readOnly = (order_.Flags & OFN_READONLY) != 0;
    return answer;
  }

 private:
  std::u16string filters_;
  std::u16string folder_;
  AnswerBuffer buffer_ = {};
  OPENFILENAMEW order_ = {};
};

std::optional<FileDialogAnswer> Ask(decltype(GetOpenFileNameW)& show,
                                    const FileDialogRequest& request) {
  if (ProgramEnd::IsAsked()) {
    return std::nullopt;
  }
  const KeptFolder kept;
  const auto order = std::make_unique<DialogOrder>(request);
  if (show(&order->Order()) == FALSE) {
    return std::nullopt;
  }
  const FileDialogAnswer answer = order->Answer();
  LastFolder() = answer.path.substr(0, order->Order().nFileOffset);
  return answer;
}

}  // namespace

std::optional<FileDialogAnswer> ShowOpenDialog(const FileDialogRequest& request) {
  return Ask(GetOpenFileNameW, request);
}

std::optional<FileDialogAnswer> ShowSaveDialog(const FileDialogRequest& request) {
  return Ask(GetSaveFileNameW, request);
}

}  // namespace lexmill::platform
