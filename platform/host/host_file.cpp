// SPDX-License-Identifier: MIT
// Every call that can fail goes through Ask, where tests let it fail; the folder of the system
// below knows nothing of that. A host may move fewer bytes than it was asked to (a signal, a pipe,
// a disk that is nearly full), so writes, and reads at an offset, go on until all is
// through.
#include "platform/host/host_file.h"

#include <utility>

#include "platform/host/host_faults.h"
#include "platform/host/system_file.h"

namespace lexmill::platform {
namespace {

/// Makes a call unless it is to fail.
template <class Call>
auto Ask(HostCall kind, Call call) -> decltype(call()) {
  if (const auto error = HostFaults::Strike(kind)) {
    return *error;
  }
  return call();
}

/// Goes on with a transfer until `total` bytes are through or a step moves none.
/// @return bytes moved
template <class Step>
HostResult<std::size_t> TransferAll(HostCall kind, std::size_t total, Step step) {
  std::size_t done = 0;
  while (done < total) {
    const auto moved = Ask(kind, [&step, done] { return step(done); });
    if (!moved) {
      return moved;
    }
    if (*moved == 0) {
      break;
    }
    done += *moved;
  }
  return done;
}

/// A write that moves nothing and reports no error has found no room.
HostOutcome Whole(const HostResult<std::size_t>& moved, std::size_t total) {
  if (!moved) {
    return moved.Error();
  }
  if (*moved < total) {
    return HostError::Full;
  }
  return Done();
}

HostResult<HostFile> Opened(HostResult<HostHandle> handle) {
  if (!handle) {
    return handle.Error();
  }
  return HostFile(*handle);
}

}  // namespace

HostFile::HostFile(HostFile&& other) noexcept
    : handle_(std::exchange(other.handle_, HostHandle::None)) {}

HostFile& HostFile::operator=(HostFile&& other) noexcept {
  if (this != &other) {
    Close();
    handle_ = std::exchange(other.handle_, HostHandle::None);
  }
  return *this;
}

HostFile::~HostFile() {
  Close();
}

HostResult<HostFile> HostFile::Open(const HostPath& path, OpenMode mode) {
  return Opened(Ask(HostCall::Open, [&path, mode] { return system::Open(path, mode); }));
}

HostResult<HostFile> HostFile::OpenTemporary(const HostPath& neighbour) {
  return Opened(Ask(HostCall::Open, [&neighbour] { return system::OpenTemporary(neighbour); }));
}

HostResult<std::size_t> HostFile::Read(std::span<char> buffer) {
  return Ask(HostCall::Read, [this, buffer] { return system::Read(handle_, buffer); });
}

HostResult<std::size_t> HostFile::ReadAt(std::span<char> buffer, std::int64_t offset) const {
  return TransferAll(HostCall::Read, buffer.size(), [this, buffer, offset](std::size_t done) {
    return system::ReadAt(handle_, buffer.subspan(done), offset + static_cast<std::int64_t>(done));
  });
}

HostOutcome HostFile::Write(std::string_view bytes) {
  const auto moved = TransferAll(HostCall::Write, bytes.size(), [this, bytes](std::size_t done) {
    return system::Write(handle_, bytes.substr(done));
  });
  return Whole(moved, bytes.size());
}

HostOutcome HostFile::WriteAt(std::string_view bytes, std::int64_t offset) {
  const auto moved =
      TransferAll(HostCall::Write, bytes.size(), [this, bytes, offset](std::size_t done) {
        return system::WriteAt(handle_, bytes.substr(done),
                               offset + static_cast<std::int64_t>(done));
      });
  return Whole(moved, bytes.size());
}

HostOutcome HostFile::Synchronise() {
  return Ask(HostCall::Synchronise, [this] { return system::Synchronise(handle_); });
}

HostOutcome HostFile::Truncate(std::int64_t size) {
  return Ask(HostCall::Truncate, [this, size] { return system::Truncate(handle_, size); });
}

HostOutcome HostFile::Lock(LockKind kind) {
  return system::Lock(handle_, kind);
}

void HostFile::TakeOver(const HostPath& older) {
  system::TakeOver(handle_, older);
}

HostResult<FileStatus> HostFile::Status() const {
  return system::Status(handle_);
}

HostResult<std::int64_t> HostFile::Size() const {
  const auto status = Status();
  if (!status) {
    return status.Error();
  }
  return status->size;
}

HostOutcome HostFile::Close() {
  if (!IsOpen()) {
    return Done();
  }
  // Closed in any case, since a host that reports a failure here has closed the file all the same.
  const auto closed = system::Close(std::exchange(handle_, HostHandle::None));
  return Ask(HostCall::Close, [&closed] { return closed; });
}

HostOutcome RenameFile(const HostPath& from, const HostPath& to) {
  return Ask(HostCall::Rename, [&from, &to] { return system::Rename(from, to); });
}

HostOutcome RemoveFile(const HostPath& path) {
  return Ask(HostCall::Remove, [&path] { return system::Remove(path); });
}

}  // namespace lexmill::platform
