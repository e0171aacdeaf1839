// SPDX-License-Identifier: MIT
// platform/files: the file system object, and the binary read at a position.
// Stands for: Scripting.FileSystemObject, and binary file access of the runtime.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files/text_stream.h"
#include "platform/text/text_encoding.h"

namespace lexmill::platform {

/// The services on files by name. Holds nothing; cheap to make.
/// Failures: FileNotFound, PathNotFound (folder part missing), PermissionDenied (no permission, a
/// folder; for reading also a pipe or a device), BadFileName (NUL in the name), InvalidCall (empty
/// name), DiskFull, DeviceError.
class FileSystemObject {
 public:
  /// True for anything but a folder that exists under this name, as far as this user can see.
  [[nodiscard]] bool FileExists(std::u16string_view path) const;
  [[nodiscard]] bool FolderExists(std::u16string_view path) const;
  /// The folder part of `path` by text alone; see ParentFolder.
  [[nodiscard]] std::u16string GetParentFolderName(std::u16string_view path) const;
  /// Size in bytes. @throws Failure FileNotFound, PathNotFound
  [[nodiscard]] std::int64_t FileSize(std::u16string_view path) const;
  /// A random name `radXXXXX.tmp` with five hexadecimal digits. Nothing is created or looked up.
  [[nodiscard]] std::u16string GetTempName() const;
  /// Removes a file; one without write permission only with `force`. A name is taken as it is,
  /// no wildcards. @throws Failure FileNotFound (also for a folder), PathNotFound, PermissionDenied
  void DeleteFile(std::u16string_view path, bool force = false) const;
  /// Opens an existing file for reading; the mark of `encoding`, if it has one, is passed over.
  /// @throws Failure FileNotFound, PathNotFound, PermissionDenied
  [[nodiscard]] TextReader OpenTextFile(std::u16string_view path,
                                        TextEncoding encoding = TextEncoding::Ansi) const;
  /// Creates a file, in place of any older one if `overwrite`.
  /// @throws Failure FileAlreadyExists, PathNotFound, PermissionDenied, DiskFull
  [[nodiscard]] TextWriter CreateTextFile(std::u16string_view path, bool overwrite,
                                          TextEncoding encoding = TextEncoding::Ansi) const;
};

/// When a file was last written to, in a unit of the host's: good for comparison alone. None for a
/// folder, or if there is no such file.
[[nodiscard]] std::optional<std::int64_t> ModificationTime(std::u16string_view path);

/// Reads `length` bytes from byte `offset` of a file; fewer if it ends there.
/// @throws Failure FileNotFound, PathNotFound, PathFileAccess (folder, no permission)
[[nodiscard]] std::string ReadBinary(std::u16string_view path, std::int64_t offset,
                                     std::size_t length);

}  // namespace lexmill::platform
