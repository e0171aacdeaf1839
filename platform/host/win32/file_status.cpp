// SPDX-License-Identifier: MIT
// What the system says of files, open or not.
#include "platform/host/same_file.h"
#include "platform/host/system_file.h"
#include "platform/host/win32/error.h"
#include "platform/host/win32/handle.h"
#include "platform/host/win32/path.h"
#include "platform/host/win32/wide.h"

namespace lexmill::platform {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Opens a file or a folder for `access`; that somebody has it open is no hindrance to looking at
/// it.
system::OwnedHandle OpenFor(const std::wstring& name, DWORD access) {
  return system::OwnedHandle(CreateFileW(name.c_str(), access, kShareAll, nullptr, OPEN_EXISTING,
                                         FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

std::int64_t Joined(DWORD high, DWORD low) {
  return static_cast<std::int64_t>(std::uint64_t{high} << 32U | low);
}

HostResult<FileStatus> StatusOfHandle(HANDLE handle) {
  FileStatus status;
  if (GetFileType(handle) != FILE_TYPE_DISK) {
    return status;
  }
  BY_HANDLE_FILE_INFORMATION information = {};
  FILE_STANDARD_INFO standard = {};
  if (GetFileInformationByHandle(handle, &information) == 0 ||
      GetFileInformationByHandleEx(handle, FileStandardInfo, &standard, sizeof standard) == 0) {
    return system::LastError();
  }
  const FILETIME& written = information.ftLastWriteTime;
  status.changed = Joined(written.dwHighDateTime, written.dwLowDateTime);
  status.hasName = standard.DeletePending == FALSE && information.nNumberOfLinks > 0;
  if ((information.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    status.kind = FileKind::Folder;
  } else {
    status.kind = FileKind::Regular;
    status.size = Joined(information.nFileSizeHigh, information.nFileSizeLow);
  }
  return status;
}

HostResult<BY_HANDLE_FILE_INFORMATION> InformationOn(std::u16string_view path) {
  const auto name = system::NameOf(HostPath(path));
  if (!name) {
    return name.Error();
  }
  const auto file = OpenFor(*name, FILE_READ_ATTRIBUTES);
  BY_HANDLE_FILE_INFORMATION information = {};
  if (!file.IsOpen() || GetFileInformationByHandle(file.Get(), &information) == 0) {
    return system::LastError();
  }
  return information;
}

}  // namespace

HostResult<FileStatus> StatusOf(const HostPath& path) {
  const auto name = system::NameOf(path);
  if (!name) {
    return name.Error();
  }
  const auto file = OpenFor(*name, FILE_READ_ATTRIBUTES);
  return file.IsOpen() ? StatusOfHandle(file.Get()) : system::LastError();
}

bool IsSameFile(std::u16string_view path, std::u16string_view other) {
  const auto one = InformationOn(path);
  const auto two = InformationOn(other);
  return one && two && one->dwVolumeSerialNumber == two->dwVolumeSerialNumber &&
         one->nFileIndexHigh == two->nFileIndexHigh && one->nFileIndexLow == two->nFileIndexLow;
}

HostOutcome MayWrite(const HostPath& path) {
  const auto name = system::NameOf(path);
  if (!name) {
    return name.Error();
  }
  const DWORD attributes = GetFileAttributesW(name->c_str());
  const bool isFolder =
      attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  // The right to write to a file is, for a folder, the right to create files in it.
  const auto file = OpenFor(*name, isFolder ? FILE_ADD_FILE : GENERIC_WRITE);
  // Whether somebody has it open matters once it is written.
  return file.IsOpen() || system::LastError() == HostError::InUse ? HostOutcome(Done())
                                                                  : system::LastError();
}

std::vector<std::u16string> NamesIn(const HostPath& folder) {
  std::vector<std::u16string> names;
  const auto name = system::NameOf(HostPath(WithSeparator(folder.Text())));
  WIN32_FIND_DATAW entry = {};
  const HANDLE search =
      name ? FindFirstFileW((*name + L"*").c_str(), &entry) : INVALID_HANDLE_VALUE;
  if (search == INVALID_HANDLE_VALUE) {
    return names;
  }
  do {
    const std::wstring_view found = entry.cFileName;
    if (found != L"." && found != L"..") {
      names.push_back(system::TextOf(found));
    }
  } while (FindNextFileW(search, &entry) != 0);
  FindClose(search);
  return names;
}

namespace system {

HostResult<FileStatus> Status(HostHandle handle) {
  return StatusOfHandle(HandleOf(handle));
}

}  // namespace system
}  // namespace lexmill::platform
