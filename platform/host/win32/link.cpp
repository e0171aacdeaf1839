// SPDX-License-Identifier: MIT
// What a link holds comes as a head of fixed numbers, which the compiler's headers lack, and two
// spellings of the path: the one for the system, which is used, and one for people.
// Source: the published layout of the buffer for symbolic links.
#include "platform/host/win32/link.h"

#include <array>
#include <cstddef>
#include <cstring>

#include "platform/host/host_path.h"
#include "platform/host/win32/folder_entry.h"
#include "platform/host/win32/handle.h"
#include "platform/host/win32/path.h"
#include "platform/host/win32/wide.h"

namespace lexmill::platform::system {
namespace {

struct LinkHead {
  ULONG tag;
  USHORT size;
  USHORT reserved;
  USHORT pathOffset;  ///< bytes from the end of this head
  USHORT pathLength;  ///< bytes
  USHORT shownOffset;
  USHORT shownLength;
  ULONG isRelative;
};

constexpr DWORD kMostBytes = 16 * 1024;
using LinkBytes = std::array<char, kMostBytes>;

/// @return the bytes read; 0 if there is no link that may be read
DWORD ReadLink(const std::wstring& name, LinkBytes& bytes) {
  const OwnedHandle link(CreateFileW(
      name.c_str(), FILE_READ_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
      nullptr, OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
  DWORD count = 0;
  const bool isRead =
      link.IsOpen() && DeviceIoControl(link.Get(), FSCTL_GET_REPARSE_POINT, nullptr, 0,
                                       bytes.data(), kMostBytes, &count, nullptr) != 0;
  return isRead ? count : 0;
}

/// The mark that the system's own paths bear is another one than that of calls.
std::wstring ForCalls(std::wstring path) {
  constexpr std::wstring_view kSystemMark = LR"(\??\)";
  if (path.starts_with(kSystemMark)) {
    path.replace(0, kSystemMark.size(), LR"(\\?\)");
  }
  return path;
}

}  // namespace

bool IsLink(const std::wstring& name) {
  const auto entry = FolderEntry(name);
  return entry && (entry->dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
         entry->dwReserved0 == IO_REPARSE_TAG_SYMLINK;
}

std::u16string LinkedPath(const std::wstring& name) {
  LinkBytes bytes = {};
  LinkHead head = {};
  const DWORD count = ReadLink(name, bytes);
  std::memcpy(&head, bytes.data(), sizeof head);
  const std::size_t begin = sizeof head + head.pathOffset;
  if (head.tag != IO_REPARSE_TAG_SYMLINK || begin + head.pathLength > count) {
    return {};
  }
  std::wstring path(head.pathLength / sizeof(wchar_t), L'\0');
  std::memcpy(path.data(), bytes.data() + begin, path.size() * sizeof(wchar_t));
  const std::u16string target = FromSystem(ForCalls(std::move(path))).Text();
  const std::u16string folder(FolderPart(FromSystem(name).Text()));
  return head.isRelative != 0 && !folder.empty() ? PathFrom(folder, target) : target;
}

}  // namespace lexmill::platform::system
