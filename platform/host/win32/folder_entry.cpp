// SPDX-License-Identifier: MIT
#include "platform/host/win32/folder_entry.h"

namespace lexmill::platform::system {

std::optional<WIN32_FIND_DATAW> FolderEntry(const std::wstring& name) {
  WIN32_FIND_DATAW entry = {};
  const HANDLE search = FindFirstFileW(name.c_str(), &entry);
  if (search == INVALID_HANDLE_VALUE) {
    return std::nullopt;
  }
  FindClose(search);
  return entry;
}

}  // namespace lexmill::platform::system
