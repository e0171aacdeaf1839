// SPDX-License-Identifier: MIT
// platform/host: files of the host by their descriptors. Every system call on a file goes through
// here.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace lexmill::platform {

enum class FileKind { Regular, Folder, Other };

/// What the host tells of a file.
struct FileStatus {
  FileKind kind = FileKind::Other;
  std::int64_t size = 0;     ///< bytes; 0 for a pipe or a device
  unsigned permissions = 0;  ///< the host's mode bits, without the kind
  unsigned owner = 0;
  unsigned group = 0;
  std::uint64_t links = 0;  ///< names that it has; 0 for a file that was removed while open
};

/// An open file. Closed by its destructor. Functions report failure by `errno`, as the host does:
/// it is turned into a Failure one level above, where the platform's rules are known.
class HostFile {
 public:
  HostFile() = default;
  explicit HostFile(int descriptor) : descriptor_(descriptor) {}
  HostFile(HostFile&& other) noexcept;
  HostFile& operator=(HostFile&& other) noexcept;
  HostFile(const HostFile&) = delete;
  HostFile& operator=(const HostFile&) = delete;
  ~HostFile();

  /// Opens `path` with the host's `flags` (O_CLOEXEC is added) and `mode`. Never waits for the
  /// other end of a named pipe: one without a writer reads as empty, one without a reader fails
  /// with ENXIO.
  /// @return an object that is not open, and `errno`, if that fails
  [[nodiscard]] static HostFile Open(const std::string& path, int flags, unsigned mode = 0666);

  [[nodiscard]] bool IsOpen() const { return descriptor_ >= 0; }
  [[nodiscard]] int Descriptor() const { return descriptor_; }

  /// Reads up to `buffer.size()` bytes; repeats interrupted calls.
  /// @return bytes read, 0 at the end; none and `errno` on failure
  [[nodiscard]] std::optional<std::size_t> Read(std::span<char> buffer);
  /// Reads at byte `offset` until `buffer` is full or the file ends.
  [[nodiscard]] std::optional<std::size_t> ReadAt(std::span<char> buffer,
                                                  std::int64_t offset) const;
  /// Writes all of `bytes`. @return false and `errno` on failure; part may have been written
  [[nodiscard]] bool Write(std::string_view bytes);
  /// Writes all of `bytes` at byte `offset`.
  [[nodiscard]] bool WriteAt(std::string_view bytes, std::int64_t offset);
  /// Flushes the content to the disk.
  [[nodiscard]] bool Synchronise();
  /// Cuts or extends the file to `size` bytes.
  [[nodiscard]] bool Truncate(std::int64_t size);
  /// Locks the file against everybody who locks it in this way, through another open file, until it
  /// is closed. Doesn't wait. @return false if somebody has it; true where the host has no locks
  [[nodiscard]] bool TryLock();
  /// Gives the file the owner, the group and the read, write and execute permissions of `status`,
  /// as far as this user may.
  void TakeOver(const FileStatus& status);
  /// @return none and `errno` on failure
  [[nodiscard]] std::optional<FileStatus> Status() const;
  /// @return size in bytes; none and `errno` on failure
  [[nodiscard]] std::optional<std::int64_t> Size() const;
  /// Closes now. @return false and `errno` if the host reports a late failure
  bool Close();

 private:
  int descriptor_ = -1;
};

/// What is found under `path`, symbolic links followed. @return none and `errno` on failure
[[nodiscard]] std::optional<FileStatus> StatusOf(const std::string& path);
/// True if this user may write to what is found under `path`; else false and `errno`.
[[nodiscard]] bool MayWrite(const std::string& path);
/// Where a symbolic link points, as it was made; none and `errno` for anything else.
[[nodiscard]] std::optional<std::string> ReadLink(const std::string& path);
/// Names in a folder, in no order; empty if it can't be read.
[[nodiscard]] std::vector<std::string> NamesIn(const std::string& folder);
/// Renames in one step, over an existing file. @return false and `errno` on failure
[[nodiscard]] bool RenameFile(const std::string& from, const std::string& to);
/// Removes a name. @return false and `errno` on failure
bool RemoveFile(const std::string& path);

/// A file that takes the place of another in one step, once it is complete: written beside the
/// target as `.NAME.lexmill-PID` and renamed over it by Commit, with the permissions of an older
/// file. Dropped if it is not committed. Older ones of the same name, left by processes that are
/// gone, are removed first. A symbolic link as target is followed; a target that is no regular
/// file, or a writable one in a folder that isn't, is written in place.
class ReplacementFile {
 public:
  /// Opens the file to write for `target`, an absolute or relative host path.
  /// @return none and `errno` if neither way can be opened; the target's own condition is tested:
  ///   EISDIR for a folder, EACCES for a file without write permission, ENOENT for a missing folder
  [[nodiscard]] static std::optional<ReplacementFile> Create(const std::string& target);

  ReplacementFile(ReplacementFile&& other) noexcept;
  ReplacementFile& operator=(ReplacementFile&& other) noexcept;
  ReplacementFile(const ReplacementFile&) = delete;
  ReplacementFile& operator=(const ReplacementFile&) = delete;
  ~ReplacementFile();

  [[nodiscard]] HostFile& File() { return file_; }

  /// Puts the file in the target's place. Flushes it to the disk first if `flush` and the target
  /// existed. @return false and `errno` on failure; the target is then as it was
  [[nodiscard]] bool Commit(bool flush);

 private:
  ReplacementFile(HostFile file, std::string aside, std::string target, bool replaces);
  [[nodiscard]] static std::optional<ReplacementFile> CreateInPlace(const std::string& target);
  [[nodiscard]] static std::optional<ReplacementFile> CreateAside(
      const std::string& target, const std::optional<FileStatus>& older);
  void Drop();

  HostFile file_;
  std::string aside_;  ///< empty when the target is written in place, and after Commit
  std::string target_;
  bool replaces_ = false;
};

}  // namespace lexmill::platform
