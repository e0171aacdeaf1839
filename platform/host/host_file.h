// SPDX-License-Identifier: MIT
// platform/host: files of the host. Every call on an open file goes through here.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host/host_error.h"
#include "platform/host/host_path.h"

namespace lexmill::platform {

/// The host's own mark of something open. Only the twin of the system knows what it means.
enum class HostHandle : std::intptr_t { None = -1 };

enum class FileKind { Regular, Folder, Other };

/// What the host says of a file.
struct FileStatus {
  FileKind kind = FileKind::Other;
  std::int64_t size = 0;     ///< bytes; 0 for a pipe or a device
  bool hasName = true;       ///< false for a file that was removed while open
  std::int64_t changed = 0;  ///< when it was last written to; to compare with another such moment
};

/// What a file is opened for.
enum class OpenMode {
  Read,              ///< an existing file, to read
  ReadWrite,         ///< an existing file, to read and write
  ReadWriteCreate,   ///< the same; a missing file is created empty
  ReadWriteReplace,  ///< created, or emptied if it is there; to read and write
  Overwrite,         ///< an existing file or device, emptied, to write
  CreateNew,         ///< a new file, to write; fails with Exists if the name is taken
};

/// A lock on a whole file, against everybody who locks it so through another open file, in this
/// process or another. Shells of the database's format see it and are seen: it is on the bytes that
/// they lock on this host.
enum class LockKind { None, Shared, Exclusive };

/// An open file. Closed by its destructor.
class HostFile {
 public:
  HostFile() = default;
  explicit HostFile(HostHandle handle) : handle_(handle) {}
  HostFile(HostFile&& other) noexcept;
  HostFile& operator=(HostFile&& other) noexcept;
  HostFile(const HostFile&) = delete;
  HostFile& operator=(const HostFile&) = delete;
  ~HostFile();

  /// Never waits for the other end of a named pipe: one without a writer reads as empty, one
  /// without a reader fails with Device. Child processes don't inherit it.
  [[nodiscard]] static HostResult<HostFile> Open(const HostPath& path, OpenMode mode);
  /// Creates an empty file for reading and writing on the same disk as the file at `neighbour`. No
  /// other process sees it, and nothing of it stays, however this one ends.
  [[nodiscard]] static HostResult<HostFile> OpenTemporary(const HostPath& neighbour);

  [[nodiscard]] bool IsOpen() const { return handle_ != HostHandle::None; }
  [[nodiscard]] HostHandle Handle() const { return handle_; }

  /// Reads up to `buffer.size()` bytes, at least one. @return bytes read; 0 at the end
  [[nodiscard]] HostResult<std::size_t> Read(std::span<char> buffer);
  /// Reads at byte `offset` until `buffer` is full or the file ends. @return bytes read
  [[nodiscard]] HostResult<std::size_t> ReadAt(std::span<char> buffer, std::int64_t offset) const;
  /// Writes all of `bytes`; after a failure a part may have been written.
  [[nodiscard]] HostOutcome Write(std::string_view bytes);
  /// The same at byte `offset`.
  [[nodiscard]] HostOutcome WriteAt(std::string_view bytes, std::int64_t offset);
  /// Flushes the content to the disk.
  [[nodiscard]] HostOutcome Synchronise();
  /// Cuts or extends the file to `size` bytes.
  [[nodiscard]] HostOutcome Truncate(std::int64_t size);
  /// Changes this file's lock to `kind` without waiting. It goes when the file is closed.
  /// @return InUse if somebody is in the way: the lock is as before
  [[nodiscard]] HostOutcome Lock(LockKind kind);
  /// Gives the file the owner and the permissions of the file at `older`, as far as this user may.
  void TakeOver(const HostPath& older);
  [[nodiscard]] HostResult<FileStatus> Status() const;
  /// @return size in bytes
  [[nodiscard]] HostResult<std::int64_t> Size() const;
  /// Closes now. A host may report the failure of an earlier write as late as here.
  HostOutcome Close();

 private:
  HostHandle handle_ = HostHandle::None;
};

/// What is found under `path`, symbolic links followed.
[[nodiscard]] HostResult<FileStatus> StatusOf(const HostPath& path);
/// Succeeds if this user may write to what is found under `path`.
[[nodiscard]] HostOutcome MayWrite(const HostPath& path);
/// Names in a folder, in no order; empty if it can't be read.
[[nodiscard]] std::vector<std::u16string> NamesIn(const HostPath& folder);
/// Renames in one step, over an existing file.
[[nodiscard]] HostOutcome RenameFile(const HostPath& from, const HostPath& to);
/// Removes a name.
HostOutcome RemoveFile(const HostPath& path);

}  // namespace lexmill::platform
