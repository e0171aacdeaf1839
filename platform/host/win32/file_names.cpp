// SPDX-License-Identifier: MIT
// Names of files: what takes the place of what, and where links lead. A virus scanner or an indexer
// has a new file open for a moment, so whoever is in the way is given one.
#include <aclapi.h>

#include <functional>
#include <tuple>

#include "platform/host/system_file.h"
#include "platform/host/win32/error.h"
#include "platform/host/win32/handle.h"
#include "platform/host/win32/link.h"
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

/// Opens `name` for `access`; no one who has it open is in the way of a look at it.
OwnedHandle OpenFor(const std::wstring& name, DWORD access) {
  return OwnedHandle(CreateFileW(name.c_str(), access,
                                 FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                 OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

/// Gives `name` the access list of `older`, and keeps from it what its folder hands down if that is
/// kept from the older file.
void TakeOverAccess(std::wstring name, const std::wstring& older) {
  PACL list = nullptr;
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  if (GetNamedSecurityInfoW(older.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr,
                            nullptr, &list, nullptr, &descriptor) != ERROR_SUCCESS) {
    return;
  }
  SECURITY_DESCRIPTOR_CONTROL control = 0;
  DWORD revision = 0;
  GetSecurityDescriptorControl(descriptor, &control, &revision);
  const SECURITY_INFORMATION inheritance = (control & SE_DACL_PROTECTED) != 0
                                               ? PROTECTED_DACL_SECURITY_INFORMATION
                                               : UNPROTECTED_DACL_SECURITY_INFORMATION;
  std::ignore =
      SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION | inheritance,
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
  const bool isReadOnly =
      attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
  if (isReadOnly) {
    // Whether it may be removed is the folder's matter; callers ask MayWrite for the file's.
    SetFileAttributesW(name->c_str(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
  }
  const HostOutcome outcome = Patiently(*name, [&] { return DeleteFileW(name->c_str()); });
  if (isReadOnly && !outcome) {
    SetFileAttributesW(name->c_str(), attributes);
  }
  return outcome;
}

HostResult<HostPath> FollowLinks(const HostPath& path) {
  constexpr int kMostLinks = 63;  // as many as the system follows
  HostPath place = path;
  for (int i = 0; i <= kMostLinks; ++i) {
    const auto name = NameOf(place);
    if (!name) {
      return name.Error();
    }
    if (!IsLink(*name)) {
      return place;
    }
    if (const OwnedHandle file = OpenFor(*name, FILE_READ_ATTRIBUTES); file.IsOpen()) {
      return FromSystem(FinalName(file.Get()));
    }
    if (const HostError error = LastError(); error != HostError::NotFound) {
      return error;
    }
    place = HostPath(LinkedPath(*name));
  }
  return HostError::NoFolder;
}

bool MayReplace(const HostPath& path) {
  const auto name = NameOf(path);
  // Somebody who has the file open is waited for when it is replaced.
  return !name || OpenFor(*name, DELETE).IsOpen() || LastError() != HostError::Denied;
}

}  // namespace lexmill::platform::system
