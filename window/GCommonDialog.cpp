// SPDX-License-Identifier: MIT
#include "window/GCommonDialog.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "platform/controls/dialogs.h"
#include "platform/host/host_path.h"

namespace lexmill::GCommonDialog {
namespace {

constexpr char16_t kNul = u'\0';
constexpr std::size_t kMultiSelectBuffer = 8192;

// The platform's flags.
constexpr std::int32_t kReadOnly = 0x1;
constexpr std::int32_t kOverwritePrompt = 0x2;
constexpr std::int32_t kHideReadOnly = 0x4;
constexpr std::int32_t kHook = 0x20;
constexpr std::int32_t kTemplate = 0x40;
constexpr std::int32_t kMultiSelect = 0x200;
constexpr std::int32_t kFileMustExist = 0x1000;

std::int32_t FlagIf(bool set, std::int32_t flag) {
  return set ? flag : 0;
}

// What both dialogs are called with.
struct Arguments {
  std::u16string& FileName;
  std::u16string& FileTitle;
  std::u16string& Filter;
  std::int32_t& FilterIndex;
  std::u16string_view InitDir;
  std::u16string_view DlgTitle;
  std::u16string_view DefaultExt;
  std::int32_t Owner;
  std::int32_t& Flags;
};

std::u16string ConvertFilter(std::u16string filter) {
  std::ranges::replace_if(
      filter, [](char16_t unit) { return unit == u':' || unit == u'|'; }, kNul);
  return filter + kNul + kNul;
}

std::vector<platform::FileFilter> ListFilters(std::u16string_view filters) {
  std::vector<platform::FileFilter> list;
  for (std::int32_t index = 1;; ++index) {
    const auto pair = FilterPairAt(filters, index);
    const auto description = TrimAtNul(pair);
    if (description.empty()) {
      return list;
    }
    list.push_back(
        {std::u16string(description), std::u16string(pair.substr(description.size() + 1))});
  }
}

platform::FileDialogRequest MakeRequest(const Arguments& arguments, std::u16string_view filters) {
  const auto has = [&](std::int32_t flag) { return (arguments.Flags & flag) != 0; };
  platform::FileDialogRequest request;
  request.title = arguments.DlgTitle;
  request.fileName = arguments.FileName;
  request.initialFolder = arguments.InitDir;
  request.filters = ListFilters(filters);
  request.filterIndex = arguments.FilterIndex;
  request.defaultExtension = arguments.DefaultExt;
  request.overActiveWindow = arguments.Owner != kNoOwner;
  request.fileMustExist = has(kFileMustExist);
  request.overwritePrompt = has(kOverwritePrompt);
  request.multipleSelection = has(kMultiSelect);
  request.readOnlyBox = !has(kHideReadOnly);
  request.readOnly = has(kReadOnly);
  return request;
}

void HandBack(const platform::FileDialogAnswer& answer, std::u16string_view filters,
              const Arguments& arguments) {
  if ((arguments.Flags & kMultiSelect) != 0) {
    arguments.FileName = answer.path;
    arguments.FileName.resize(std::max(answer.path.size() + 2, kMultiSelectBuffer), kNul);
  } else {
    arguments.FileName = TrimAtNul(answer.path);
    arguments.FileTitle = platform::FileName(arguments.FileName);
  }
  arguments.Flags = (arguments.Flags & ~kReadOnly) | FlagIf(answer.readOnly, kReadOnly);
  arguments.FilterIndex = answer.filterIndex;
  arguments.Filter = FilterPairAt(filters, answer.filterIndex);
}

bool Show(decltype(platform::ShowOpenDialog)& dialog, std::int32_t cancelledIndex,
          const Arguments& arguments) {
  const std::u16string filters = ConvertFilter(arguments.Filter);
  const auto answer = dialog(MakeRequest(arguments, filters));
  if (answer) {
    HandBack(*answer, filters, arguments);
    return true;
  }
  arguments.FileName.clear();
  arguments.FileTitle.clear();
  arguments.Filter.clear();
  arguments.Flags = 0;
  arguments.FilterIndex = cancelledIndex;
  return false;
}

}  // namespace

bool ShowOpenFileDialog(std::u16string& FileName, std::u16string& FileTitle, bool FileMustExist,
                        bool MultiSelect, bool& ReadOnly, bool HideReadOnly, std::u16string& Filter,
                        std::int32_t& FilterIndex, std::u16string_view InitDir,
                        std::u16string_view DlgTitle, std::u16string_view DefaultExt,
                        std::int32_t Owner, std::int32_t& Flags) {
  Flags = (Flags & ~(kHook | kTemplate)) | FlagIf(FileMustExist, kFileMustExist) |
          FlagIf(MultiSelect, kMultiSelect) | FlagIf(ReadOnly, kReadOnly) |
          FlagIf(HideReadOnly, kHideReadOnly);
  const bool confirmed =
      Show(platform::ShowOpenDialog, -1,
           {FileName, FileTitle, Filter, FilterIndex, InitDir, DlgTitle, DefaultExt, Owner, Flags});
  if ((Flags & kReadOnly) != 0) {
    ReadOnly = true;
  }
  return confirmed;
}

bool ShowSaveFileDialog(std::u16string& FileName, std::u16string& FileTitle, bool OverWritePrompt,
                        std::u16string& Filter, std::int32_t& FilterIndex,
                        std::u16string_view InitDir, std::u16string_view DlgTitle,
                        std::u16string_view DefaultExt, std::int32_t Owner, std::int32_t& Flags) {
  Flags =
      (Flags & ~(kHook | kTemplate)) | FlagIf(OverWritePrompt, kOverwritePrompt) | kHideReadOnly;
  return Show(
      platform::ShowSaveDialog, 0,
      {FileName, FileTitle, Filter, FilterIndex, InitDir, DlgTitle, DefaultExt, Owner, Flags});
}

std::u16string_view TrimAtNul(std::u16string_view buffer) {
  return buffer.substr(0, buffer.find(kNul));
}

std::u16string_view FilterPairAt(std::u16string_view filters, std::int32_t index) {
  std::size_t start = 0;
  for (;; --index) {
    const std::size_t middle = filters.find(kNul, start);
    if (middle == std::u16string_view::npos) {
      return {};
    }
    const std::size_t end = std::min(filters.find(kNul, middle + 1), filters.size());
    if (index == 1) {
      return filters.substr(start, end - start);
    }
    start = end + 1;
  }
}

}  // namespace lexmill::GCommonDialog
