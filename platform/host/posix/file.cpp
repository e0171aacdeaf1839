// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <tuple>

#include "platform/host/posix/descriptor.h"
#include "platform/host/posix/error.h"
#include "platform/host/posix/path.h"
#include "platform/host/same_file.h"
#include "platform/host/system_file.h"

namespace lexmill::platform::system {
namespace {

constexpr mode_t kForAll = 0666;
constexpr mode_t kForOwner = 0600;

/// Repeats a system call as long as signals interrupt it.
template <class Call>
auto Uninterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) {
    result = call();
  }
  return result;
}

HostResult<std::size_t> Moved(ssize_t count) {
  if (count < 0) {
    return LastError();
  }
  return static_cast<std::size_t>(count);
}

int FlagsOf(OpenMode mode) {
  switch (mode) {
    case OpenMode::Read:
      break;
    case OpenMode::ReadWrite:
      return O_RDWR;
    case OpenMode::ReadWriteCreate:
      return O_RDWR | O_CREAT;
    case OpenMode::ReadWriteReplace:
      return O_RDWR | O_CREAT | O_TRUNC;
    case OpenMode::Overwrite:
      return O_WRONLY | O_TRUNC;
    case OpenMode::CreateNew:
      return O_WRONLY | O_CREAT | O_EXCL;
  }
  return O_RDONLY;
}

HostResult<HostHandle> OpenBy(const char* name, int flags, mode_t permissions) {
  // O_NONBLOCK is for the opening alone, which would wait for the other end of a named pipe.
  const int descriptor = Uninterrupted(
      [&] { return open(name, flags | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, permissions); });
  if (descriptor < 0) {
    return LastError();
  }
  const int status = fcntl(descriptor, F_GETFL);
  std::ignore = fcntl(descriptor, F_SETFL, status & ~O_NONBLOCK);
  return HandleOf(descriptor);
}

FileStatus ToFileStatus(const struct stat& host) {
  FileStatus status;
  if (S_ISREG(host.st_mode)) {
    status.kind = FileKind::Regular;
    status.size = host.st_size;
  } else if (S_ISDIR(host.st_mode)) {
    status.kind = FileKind::Folder;
  }
  status.hasName = host.st_nlink > 0;
  status.changed = std::int64_t{host.st_mtim.tv_sec} * 1'000'000'000 + host.st_mtim.tv_nsec;
  return status;
}

short LockTypeOf(LockKind kind) {
  switch (kind) {
    case LockKind::Shared:
      return F_RDLCK;
    case LockKind::Exclusive:
      return F_WRLCK;
    case LockKind::None:
      break;
  }
  return F_UNLCK;
}

}  // namespace

HostResult<HostHandle> Open(const HostPath& path, OpenMode mode) {
  return OpenBy(NameOf(path), FlagsOf(mode), kForAll);
}

HostResult<HostHandle> OpenTemporary(const HostPath& neighbour) {
  const std::filesystem::path folder = neighbour.Native().parent_path();
  auto file = OpenBy(folder.empty() ? "." : folder.c_str(), O_TMPFILE | O_RDWR, kForOwner);
  if (!file) {
    // Not every file system has nameless files.
    const std::string name = neighbour.Native().native() + "-sort" + std::to_string(getpid());
    file = OpenBy(name.c_str(), O_RDWR | O_CREAT | O_EXCL, kForOwner);
    if (file) {
      std::ignore = unlink(name.c_str());
    }
  }
  return file;
}

HostResult<HostHandle> Duplicate(HostHandle handle) {
  const int copy = fcntl(DescriptorOf(handle), F_DUPFD_CLOEXEC, 0);
  if (copy < 0) {
    return LastError();
  }
  return HandleOf(copy);
}

HostResult<std::size_t> Read(HostHandle handle, std::span<char> buffer) {
  return Moved(
      Uninterrupted([&] { return read(DescriptorOf(handle), buffer.data(), buffer.size()); }));
}

HostResult<std::size_t> ReadAt(HostHandle handle, std::span<char> buffer, std::int64_t offset) {
  return Moved(Uninterrupted(
      [&] { return pread(DescriptorOf(handle), buffer.data(), buffer.size(), offset); }));
}

HostResult<std::size_t> Write(HostHandle handle, std::string_view bytes) {
  return Moved(
      Uninterrupted([&] { return write(DescriptorOf(handle), bytes.data(), bytes.size()); }));
}

HostResult<std::size_t> WriteAt(HostHandle handle, std::string_view bytes, std::int64_t offset) {
  return Moved(Uninterrupted(
      [&] { return pwrite(DescriptorOf(handle), bytes.data(), bytes.size(), offset); }));
}

HostOutcome Synchronise(HostHandle handle) {
  return OutcomeOf(Uninterrupted([handle] { return fsync(DescriptorOf(handle)); }));
}

HostOutcome Truncate(HostHandle handle, std::int64_t size) {
  return OutcomeOf(Uninterrupted([&] { return ftruncate(DescriptorOf(handle), size); }));
}

HostOutcome Lock(HostHandle handle, LockKind kind) {
  // Bound to the open file and not to the process, yet in the way of the process-bound locks that
  // other shells take. They lock the whole file.
  struct flock whole {};
  whole.l_type = LockTypeOf(kind);
  whole.l_whence = SEEK_SET;
  if (fcntl(DescriptorOf(handle), F_OFD_SETLK, &whole) == 0) {
    return Done();
  }
  return errno == EACCES ? HostError::InUse : LastError();
}

HostOutcome Close(HostHandle handle) {
  // Not repeated when interrupted: the descriptor is gone by then and may be another file's.
  return close(DescriptorOf(handle)) == 0 || errno == EINTR ? HostOutcome(Done()) : LastError();
}

HostResult<FileStatus> Status(HostHandle handle) {
  struct stat host = {};
  if (fstat(DescriptorOf(handle), &host) != 0) {
    return LastError();
  }
  return ToFileStatus(host);
}

void TakeOver(HostHandle handle, const HostPath& older) {
  struct stat host = {};
  if (stat(NameOf(older), &host) != 0) {
    return;
  }
  // Owner first: a change of owner takes permission bits away.
  std::ignore = fchown(DescriptorOf(handle), host.st_uid, host.st_gid);
  std::ignore = fchmod(DescriptorOf(handle), host.st_mode & 0777U);
}

HostOutcome Rename(const HostPath& from, const HostPath& to) {
  return OutcomeOf(rename(NameOf(from), NameOf(to)));
}

HostOutcome Remove(const HostPath& path) {
  return OutcomeOf(unlink(NameOf(path)));
}

HostResult<HostPath> FollowLinks(const HostPath& path) {
  constexpr int kMostLinks = 40;
  HostPath place = path;
  for (int i = 0; i < kMostLinks; ++i) {
    std::error_code isNoLink;
    const auto target = std::filesystem::read_symlink(place.Native(), isNoLink);
    if (isNoLink) {
      return place;
    }
    // An absolute target takes the place of all.
    place = HostPath::FromNative(place.Native().parent_path() / target);
  }
  return HostError::NoFolder;
}

bool MayReplace(const HostPath& path) {
  // In a sticky folder only the owner of a file or of the folder may replace it.
  struct stat file = {};
  struct stat folder = {};
  const uid_t user = geteuid();
  if (user == 0 || stat(NameOf(path), &file) != 0 || file.st_uid == user) {
    return true;
  }
  const HostPath parent = HostPath::FromNative(path.Native().parent_path());
  const char* const name = parent.Native().empty() ? "." : NameOf(parent);
  return stat(name, &folder) != 0 || (folder.st_mode & S_ISVTX) == 0 || folder.st_uid == user;
}

}  // namespace lexmill::platform::system

namespace lexmill::platform {

HostResult<FileStatus> StatusOf(const HostPath& path) {
  struct stat host = {};
  if (stat(system::NameOf(path), &host) != 0) {
    return system::LastError();
  }
  return system::ToFileStatus(host);
}

std::vector<std::u16string> NamesIn(const HostPath& folder) {
  std::vector<std::u16string> names;
  std::error_code failure;
  std::filesystem::directory_iterator entry(folder.Native(), failure);
  while (!failure && entry != std::filesystem::directory_iterator()) {
    names.push_back(HostPath::FromNative(entry->path().filename()).Text());
    entry.increment(failure);
  }
  return names;
}

bool IsSameFile(std::u16string_view path, std::u16string_view other) {
  std::error_code missing;
  return std::filesystem::equivalent(HostPath(path).Native(), HostPath(other).Native(), missing);
}

HostOutcome MayWrite(const HostPath& path) {
  return system::OutcomeOf(faccessat(AT_FDCWD, system::NameOf(path), W_OK, AT_EACCESS));
}

}  // namespace lexmill::platform
