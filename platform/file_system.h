// SPDX-License-Identifier: MIT
// platform: the file system object and its text streams, and the binary read at a position.
// Stands for: Scripting.FileSystemObject, and binary file access of the runtime.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/text_encoding.h"

namespace lexmill::platform {

/// Reads a text file line by line. LF ends a line and a CR directly before it goes too; a lone CR
/// is text. A last line without an end counts. Buffered; closed by its destructor.
class TextReader {
 public:
  TextReader(TextReader&&) noexcept;
  TextReader& operator=(TextReader&&) noexcept;
  ~TextReader();

  /// The next line without its end. The view lives until the next call on this object.
  /// @throws Failure InputPastEnd at the end of the file, DeviceError if the host can't read
  [[nodiscard]] std::u16string_view ReadLine();

  /// The next line as it stands in the file, in bytes of the file's encoding, without its end. The
  /// view lives until the next call on this object.
  /// @throws as ReadLine
  [[nodiscard]] std::string_view ReadLineBytes();

  /// True if no line is left. @throws Failure DeviceError if the host can't read
  [[nodiscard]] bool AtEndOfStream();

  /// Bytes of the file taken by the lines read so far, a mark included.
  [[nodiscard]] std::int64_t BytesRead() const;
  /// Size of the file in bytes when it was opened; 0 for a pipe or a device.
  [[nodiscard]] std::int64_t Size() const;
  [[nodiscard]] TextEncoding Encoding() const;

  /// Closes now instead of at the end of this object's life. Closing twice is harmless.
  void Close();

 private:
  friend class FileSystemObject;
  struct State;
  explicit TextReader(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

/// Writes a text file. Buffered: a line costs no system call. The file takes the place of an older
/// one of its name in one step when it is closed or destroyed; after a failed write the older one
/// stays.
class TextWriter {
 public:
  TextWriter(TextWriter&&) noexcept;
  TextWriter& operator=(TextWriter&&) noexcept;
  /// Closes as Close does, but drops a failure.
  ~TextWriter();

  /// Writes `text` as it is.
  /// @throws Failure InvalidCall if the encoding lacks a character (nothing of this call is
  /// written),
  ///   DiskFull or DeviceError if the host can't write
  void Write(std::u16string_view text);
  /// Writes `text` and CR LF. @throws as Write
  void WriteLine(std::u16string_view text = {});
  /// Completes the file and puts it in its place. Closing twice is harmless.
  /// @throws Failure as Write, or PermissionDenied if the file can't take its place
  void Close();

 private:
  friend class FileSystemObject;
  struct State;
  explicit TextWriter(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

/// The services on files by name. Holds nothing; cheap to make.
/// Failures: FileNotFound, PathNotFound (folder part missing), PermissionDenied (no permission, a
/// folder), BadFileName (NUL in the name), InvalidCall (empty name), DiskFull, DeviceError.
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
  /// Removes a file; one without write permission only with `force`. A name is taken as it stands,
  /// no wildcards. @throws Failure FileNotFound (also for a folder), PathNotFound, PermissionDenied
  void DeleteFile(std::u16string_view path, bool force = false) const;
  /// Opens an existing file for reading; a mark that `encoding` tells of is passed over.
  /// @throws Failure FileNotFound, PathNotFound, PermissionDenied
  [[nodiscard]] TextReader OpenTextFile(std::u16string_view path,
                                        TextEncoding encoding = TextEncoding::Ansi) const;
  /// Creates a file, in place of any older one if `overwrite`.
  /// @throws Failure FileAlreadyExists, PathNotFound, PermissionDenied, DiskFull
  [[nodiscard]] TextWriter CreateTextFile(std::u16string_view path, bool overwrite,
                                          TextEncoding encoding = TextEncoding::Ansi) const;
};

/// Reads `length` bytes from byte `offset` of a file; fewer if it ends there.
/// @throws Failure FileNotFound, PathNotFound, PathFileAccess (folder, no permission)
[[nodiscard]] std::string ReadBinary(std::u16string_view path, std::int64_t offset,
                                     std::size_t length);

}  // namespace lexmill::platform
