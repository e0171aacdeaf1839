// SPDX-License-Identifier: MIT
// Open files. Everybody may read, write, rename and remove what is open here, as the neutral code
// expects; a file that somebody else has open without allowing that is InUse.
#include <algorithm>

#include "platform/host/system_file.h"
#include "platform/host/win32/error.h"
#include "platform/host/win32/folder_entry.h"
#include "platform/host/win32/handle.h"
#include "platform/host/win32/path.h"
#include "platform/host/win32/wide.h"

namespace lexmill::platform::system {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr std::size_t kLongestTransfer = std::size_t{1} << 30;

/// How a file is opened for a mode.
struct Opening {
  DWORD access;
  DWORD disposition;
  bool isEmptied = false;
};

Opening OpeningOf(OpenMode mode) {
  constexpr DWORD kBoth = GENERIC_READ | GENERIC_WRITE;
  switch (mode) {
    case OpenMode::Read:
      break;
    case OpenMode::ReadWrite:
      return {kBoth, OPEN_EXISTING};
    case OpenMode::ReadWriteCreate:
      return {kBoth, OPEN_ALWAYS};
    case OpenMode::ReadWriteReplace:
      return {kBoth, OPEN_ALWAYS, true};
    case OpenMode::Overwrite:
      return {GENERIC_WRITE, OPEN_EXISTING, true};
    case OpenMode::CreateNew:
      return {GENERIC_WRITE, CREATE_NEW};
  }
  return {GENERIC_READ, OPEN_EXISTING};
}

/// Why `name` could not be opened: a refusal may mean that there is a folder, or a file that is
/// removed as soon as somebody else closes it, which says nothing of itself but is still listed.
HostError OpeningError(const std::wstring& name) {
  const HostError error = LastError();
  if (error != HostError::Denied) {
    return error;
  }
  const DWORD attributes = GetFileAttributesW(name.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    return LastError() == HostError::Denied && FolderEntry(name) ? HostError::InUse : error;
  }
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? HostError::IsFolder : error;
}

/// A transfer's place in the file; it is made at once.
OVERLAPPED PlaceOf(std::int64_t offset) {
  OVERLAPPED place = {};
  place.Offset = static_cast<DWORD>(static_cast<std::uint64_t>(offset) & 0xFFFFFFFFU);
  place.OffsetHigh = static_cast<DWORD>(static_cast<std::uint64_t>(offset) >> 32U);
  return place;
}

DWORD LengthOf(std::size_t size) {
  return static_cast<DWORD>(std::min(size, kLongestTransfer));
}

HostResult<std::size_t> ReadBy(HostHandle handle, std::span<char> buffer, OVERLAPPED* place) {
  DWORD count = 0;
  if (ReadFile(HandleOf(handle), buffer.data(), LengthOf(buffer.size()), &count, place) != 0) {
    return std::size_t{count};
  }
  const DWORD error = GetLastError();
  const bool isEnd = error == ERROR_HANDLE_EOF || error == ERROR_BROKEN_PIPE;
  return isEnd ? HostResult<std::size_t>(std::size_t{0}) : HostErrorOf(error);
}

HostResult<std::size_t> WriteBy(HostHandle handle, std::string_view bytes, OVERLAPPED* place) {
  DWORD count = 0;
  if (WriteFile(HandleOf(handle), bytes.data(), LengthOf(bytes.size()), &count, place) == 0) {
    return LastError();
  }
  return std::size_t{count};
}

// What shells of the database's format lock on this system: the gate for the moment in which a lock
// is changed, and the bytes after it for as long as the lock is held, all of them far beyond the
// content, since a lock here keeps others from what it covers.
constexpr std::int64_t kGate = 4294957056;
constexpr std::int64_t kLocked = kGate + 1;
constexpr DWORD kLockedSize = 10239;

bool LockBytes(HostHandle handle, std::int64_t offset, DWORD size, LockKind kind) {
  OVERLAPPED place = PlaceOf(offset);
  const DWORD exclusive = kind == LockKind::Exclusive ? LOCKFILE_EXCLUSIVE_LOCK : 0;
  return LockFileEx(HandleOf(handle), LOCKFILE_FAIL_IMMEDIATELY | exclusive, 0, size, 0, &place) !=
         0;
}

/// @return false if they were not locked
bool UnlockBytes(HostHandle handle, std::int64_t offset, DWORD size) {
  OVERLAPPED place = PlaceOf(offset);
  return UnlockFileEx(HandleOf(handle), 0, size, 0, &place) != 0;
}

/// Whoever is in the gate leaves it at once, so this waits.
HostOutcome EnterGate(HostHandle handle) {
  constexpr int kTries = 100;
  for (int i = 1; !LockBytes(handle, kGate, 1, LockKind::Exclusive); ++i) {
    const HostError refusal = LastError();
    if (refusal != HostError::InUse || i == kTries) {
      return refusal;
    }
    Sleep(1);
  }
  return Done();
}

}  // namespace

HostResult<HostHandle> Open(const HostPath& path, OpenMode mode) {
  const auto name = NameOf(path);
  if (!name) {
    return name.Error();
  }
  const Opening opening = OpeningOf(mode);
  const HANDLE handle = CreateFileW(name->c_str(), opening.access, kShareAll, nullptr,
                                    opening.disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) {
    return OpeningError(*name);
  }
  // A device has no end to set.
  if (opening.isEmptied && SetEndOfFile(handle) == 0 && GetFileType(handle) == FILE_TYPE_DISK) {
    const HostError error = LastError();
    CloseHandle(handle);
    return error;
  }
  return FromHandle(handle);
}

HostResult<HostHandle> OpenTemporary(const HostPath& neighbour) {
  static unsigned number = 0;
  const std::u16string start = std::u16string(FolderPart(neighbour.Text())) + u".lexmill-sort";
  while (true) {
    const auto mark = std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++number);
    const auto name = NameOf(HostPath(start + TextOf(mark)));
    if (!name) {
      return name.Error();
    }
    const HANDLE handle = CreateFileW(
        name->c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_NEW,
        FILE_ATTRIBUTE_TEMPORARY | FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (handle != INVALID_HANDLE_VALUE) {
      return FromHandle(handle);
    }
    if (LastError() != HostError::Exists) {
      return LastError();
    }
  }
}

HostResult<HostHandle> Duplicate(HostHandle handle) {
  const HANDLE self = GetCurrentProcess();
  HANDLE copy = nullptr;
  if (::DuplicateHandle(self, HandleOf(handle), self, &copy, 0, FALSE, DUPLICATE_SAME_ACCESS) ==
      0) {
    return LastError();
  }
  return FromHandle(copy);
}

HostResult<std::size_t> Read(HostHandle handle, std::span<char> buffer) {
  return ReadBy(handle, buffer, nullptr);
}

HostResult<std::size_t> ReadAt(HostHandle handle, std::span<char> buffer, std::int64_t offset) {
  OVERLAPPED place = PlaceOf(offset);
  return ReadBy(handle, buffer, &place);
}

HostResult<std::size_t> Write(HostHandle handle, std::string_view bytes) {
  return WriteBy(handle, bytes, nullptr);
}

HostResult<std::size_t> WriteAt(HostHandle handle, std::string_view bytes, std::int64_t offset) {
  OVERLAPPED place = PlaceOf(offset);
  return WriteBy(handle, bytes, &place);
}

HostOutcome Synchronise(HostHandle handle) {
  return OutcomeOf(FlushFileBuffers(HandleOf(handle)));
}

HostOutcome Truncate(HostHandle handle, std::int64_t size) {
  FILE_END_OF_FILE_INFO end = {};
  end.EndOfFile.QuadPart = size;
  return OutcomeOf(
      SetFileInformationByHandle(HandleOf(handle), FileEndOfFileInfo, &end, sizeof end));
}

HostOutcome Lock(HostHandle handle, LockKind kind) {
  // This system can't change a lock, but whoever holds the gate loses nothing between two locks.
  if (kind == LockKind::None) {
    UnlockBytes(handle, kLocked, kLockedSize);
    return Done();
  }
  if (const auto entered = EnterGate(handle); !entered) {
    return entered;
  }
  const bool wasLocked = UnlockBytes(handle, kLocked, kLockedSize);
  const bool isLocked = LockBytes(handle, kLocked, kLockedSize, kind);
  const HostError refusal = LastError();
  if (!isLocked && wasLocked) {
    LockBytes(handle, kLocked, kLockedSize, LockKind::Shared);
  }
  UnlockBytes(handle, kGate, 1);
  return isLocked ? HostOutcome(Done()) : refusal;
}

HostOutcome Close(HostHandle handle) {
  return OutcomeOf(CloseHandle(HandleOf(handle)));
}

}  // namespace lexmill::platform::system
