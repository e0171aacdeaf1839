// SPDX-License-Identifier: MIT
// Names of files: what takes the place of what, and where links lead. A virus scanner or an indexer
// has a new file open for a moment, so whoever is in the way is given one.
#include <aclapi.h>

#include <functional>
#include <tuple>

#include "platform/host/system_file.h"
#include "platform/host/win32/error.h"
#include "platform/host/win32/handle.h"
#include "platform/host/win32/path.h"
#include "platform/host/win32/wide.h"

namespace lexmill::platform::system {
namespace {

constexpr int kTries = 20;
constexpr DWORD kPause = 50;  // milliseconds

bool IsPlainFile(const std::wstring& name) {
  const DWORD attributes = GetFileAttributesW(name.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES &&
         (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) == 0;
}

/// Makes `call` until nobody has the file `name` open that is in its way, about a second long.
HostOutcome Patiently(const std::wstring& name, const std::function<BOOL()>& call) {
  HostOutcome outcome = OutcomeOf(call());
  for (int i = 1; i < kTries && !outcome; ++i) {
    // The system denies to replace a file that is open; that is no matter of permissions.
    const bool isInTheWay = outcome.FailedBy(HostError::Denied) && IsPlainFile(name);
    if (!isInTheWay && !outcome.FailedBy(HostError::InUse)) {
      return outcome;
    }
    Sleep(kPause);
    outcome = OutcomeOf(call());
    if (outcome.FailedBy(HostError::Denied) && IsPlainFile(name)) {
      outcome = HostError::InUse;
    }
  }
  return outcome;
}

std::wstring FinalName(HANDLE handle) {
  return Filled([handle](wchar_t* buffer, DWORD size) {
    return GetFinalPathNameByHandleW(handle, buffer, size, FILE_NAME_NORMALIZED);
  });
}

bool IsLink(const std::wstring& name) {
  WIN32_FIND_DATAW entry = {};
  const HANDLE search = FindFirstFileW(name.c_str(), &entry);
  if (search == INVALID_HANDLE_VALUE) {
    return false;
  }
  FindClose(search);
  return (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
         entry.dwReserved0 == IO_REPARSE_TAG_SYMLINK;
}

/// Gives `name` the access list of `older`; what either inherits from its folder stays the
/// folder's.
void TakeOverAccess(std::wstring name, const std::wstring& older) {
  PACL list = nullptr;
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  if (GetNamedSecurityInfoW(older.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr,
                            nullptr, &list, nullptr, &descriptor) != ERROR_SUCCESS) {
    return;
  }
  std::ignore = SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION,
                                      nullptr, nullptr, list, nullptr);
  LocalFree(descriptor);
}

}  // namespace

void TakeOver(HostHandle handle, const HostPath& older) {
  const auto olderName = NameOf(older);
  const std::wstring name = FinalName(HandleOf(handle));
  if (!olderName || name.empty()) {
    return;
  }
  TakeOverAccess(name, *olderName);
  const DWORD attributes = GetFileAttributesW(olderName->c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_HIDDEN) != 0) {
    SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_HIDDEN);
  }
}

HostOutcome Rename(const HostPath& from, const HostPath& to) {
  const auto source = NameOf(from);
  const auto target = NameOf(to);
  if (!source || !target) {
    return source ? target.Error() : source.Error();
  }
  return Patiently(*target, [&] {
    return MoveFileExW(source->c_str(), target->c_str(), MOVEFILE_REPLACE_EXISTING);
  });
}

HostOutcome Remove(const HostPath& path) {
  const auto name = NameOf(path);
  if (!name) {
    return name.Error();
  }
  const DWORD attributes = GetFileAttributesW(name->c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
    // Whether it may be removed is the folder's matter; callers ask MayWrite for the file's.
    SetFileAttributesW(name->c_str(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
  }
  return Patiently(*name, [&] { return DeleteFileW(name->c_str()); });
}

HostResult<HostPath> FollowLinks(const HostPath& path) {
  const auto name = NameOf(path);
  if (!name) {
    return name.Error();
  }
  if (!IsLink(*name)) {
    return path;
  }
  const OwnedHandle file(CreateFileW(name->c_str(), FILE_READ_ATTRIBUTES,
                                     FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                     nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  if (file.IsOpen()) {
    return FromSystem(FinalName(file.Get()));
  }
  return LastError();
}

bool MayReplace(const HostPath& /*path*/) {
  return true;  // the rules of a folder here hold for creating and for replacing
}

}  // namespace lexmill::platform::system
