// SPDX-License-Identifier: MIT
#include "platform/host/host_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <tuple>
#include <utility>

#include "platform/host/host_faults.h"

namespace lexmill::platform {
namespace {

/// The host ends a name at its first NUL and would take another file for it; it knows no file
/// without a name.
const char* HostName(const std::string& path) {
  return path.find('\0') == std::string::npos ? path.c_str() : "";
}

/// Repeats a system call as long as signals interrupt it.
template <class Call>
auto Uninterrupted(HostCall kind, Call call) {
  using Result = decltype(call());
  auto result = HostFaults::Strike(kind) ? Result{-1} : call();
  while (result < 0 && errno == EINTR) {
    result = call();
  }
  return result;
}

/// Carries a transfer on until `total` bytes are through or a step moves none.
/// @return bytes moved; none if a step fails
template <class Step>
std::optional<std::size_t> TransferAll(HostCall kind, std::size_t total, Step step) {
  std::size_t done = 0;
  while (done < total) {
    const ssize_t moved = Uninterrupted(kind, [&step, done] { return step(done); });
    if (moved < 0) {
      return std::nullopt;
    }
    if (moved == 0) {
      break;
    }
    done += static_cast<std::size_t>(moved);
  }
  return done;
}

bool IsWhole(std::optional<std::size_t> moved, std::size_t total) {
  if (moved && *moved < total) {
    errno = ENOSPC;
  }
  return moved == total;
}

FileStatus ToFileStatus(const struct stat& host) {
  FileStatus status;
  if (S_ISREG(host.st_mode)) {
    status.kind = FileKind::Regular;
    status.size = host.st_size;
  } else if (S_ISDIR(host.st_mode)) {
    status.kind = FileKind::Folder;
  }
  status.permissions = host.st_mode & 07777U;
  status.owner = host.st_uid;
  status.group = host.st_gid;
  status.links = host.st_nlink;
  return status;
}

}  // namespace

HostFile::HostFile(HostFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

HostFile& HostFile::operator=(HostFile&& other) noexcept {
  if (this != &other) {
    Close();
    descriptor_ = std::exchange(other.descriptor_, -1);
  }
  return *this;
}

HostFile::~HostFile() {
  Close();
}

HostFile HostFile::Open(const std::string& path, int flags, unsigned mode) {
  const int descriptor = Uninterrupted(HostCall::Open, [&path, flags, mode] {
    return open(HostName(path), flags | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, mode);
  });
  if (descriptor >= 0 && (flags & O_NONBLOCK) == 0) {
    const int status = fcntl(descriptor, F_GETFL);
    std::ignore = fcntl(descriptor, F_SETFL, status & ~O_NONBLOCK);
  }
  return HostFile(descriptor);
}

std::optional<std::size_t> HostFile::Read(std::span<char> buffer) {
  const ssize_t count = Uninterrupted(
      HostCall::Read, [this, buffer] { return read(descriptor_, buffer.data(), buffer.size()); });
  return count < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(count));
}

std::optional<std::size_t> HostFile::ReadAt(std::span<char> buffer, std::int64_t offset) const {
  return TransferAll(HostCall::Read, buffer.size(), [this, buffer, offset](std::size_t done) {
    return pread(descriptor_, buffer.data() + done, buffer.size() - done,
                 offset + static_cast<std::int64_t>(done));
  });
}

bool HostFile::Write(std::string_view bytes) {
  const auto moved = TransferAll(HostCall::Write, bytes.size(), [this, bytes](std::size_t done) {
    return write(descriptor_, bytes.data() + done, bytes.size() - done);
  });
  return IsWhole(moved, bytes.size());
}

bool HostFile::WriteAt(std::string_view bytes, std::int64_t offset) {
  const auto moved =
      TransferAll(HostCall::Write, bytes.size(), [this, bytes, offset](std::size_t done) {
        return pwrite(descriptor_, bytes.data() + done, bytes.size() - done,
                      offset + static_cast<std::int64_t>(done));
      });
  return IsWhole(moved, bytes.size());
}

bool HostFile::Synchronise() {
  return Uninterrupted(HostCall::Synchronise, [this] { return fsync(descriptor_); }) == 0;
}

bool HostFile::Truncate(std::int64_t size) {
  return Uninterrupted(HostCall::Truncate, [this, size] { return ftruncate(descriptor_, size); }) ==
         0;
}

bool HostFile::TryLock() {
  return flock(descriptor_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

void HostFile::TakeOver(const FileStatus& status) {
  // Owner first: a change of owner takes permission bits away.
  std::ignore = fchown(descriptor_, status.owner, status.group);
  std::ignore = fchmod(descriptor_, status.permissions & 0777U);
}

std::optional<FileStatus> HostFile::Status() const {
  struct stat host = {};
  return fstat(descriptor_, &host) == 0 ? std::optional(ToFileStatus(host)) : std::nullopt;
}

std::optional<std::int64_t> HostFile::Size() const {
  const auto status = Status();
  return status ? std::optional(status->size) : std::nullopt;
}

bool HostFile::Close() {
  if (!IsOpen()) {
    return true;
  }
  // Not repeated when interrupted: the descriptor is gone by then and may be another file's.
  const bool isClosed = close(std::exchange(descriptor_, -1)) == 0 || errno == EINTR;
  return !HostFaults::Strike(HostCall::Close) && isClosed;
}

std::optional<FileStatus> StatusOf(const std::string& path) {
  struct stat host = {};
  return stat(HostName(path), &host) == 0 ? std::optional(ToFileStatus(host)) : std::nullopt;
}

bool MayWrite(const std::string& path) {
  return faccessat(AT_FDCWD, HostName(path), W_OK, AT_EACCESS) == 0;
}

std::optional<std::string> ReadLink(const std::string& path) {
  std::string target(4096, '\0');
  const ssize_t length = readlink(HostName(path), target.data(), target.size());
  if (length < 0) {
    return std::nullopt;
  }
  target.resize(static_cast<std::size_t>(length));
  return target;
}

std::vector<std::string> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  std::error_code failure;
  std::filesystem::directory_iterator entry(folder, failure);
  while (!failure && entry != std::filesystem::directory_iterator()) {
    names.push_back(entry->path().filename().string());
    entry.increment(failure);
  }
  return names;
}

bool RenameFile(const std::string& from, const std::string& to) {
  return !HostFaults::Strike(HostCall::Rename) && rename(HostName(from), HostName(to)) == 0;
}

bool RemoveFile(const std::string& path) {
  return !HostFaults::Strike(HostCall::Remove) && unlink(HostName(path)) == 0;
}

}  // namespace lexmill::platform
