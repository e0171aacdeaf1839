// SPDX-License-Identifier: MIT
// platform/host: paths as text, and as the host takes them.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace lexmill::platform {

/// What parts the names of a path on this host; the first one is the one to write.
extern const std::u16string_view kPathSeparators;
/// The path of the device that is empty and takes everything.
extern const std::u16string_view kNullDevice;

/// A path as the host's calls take it, made from text by the twin: what the host's form of a path
/// is nobody else needs to know. A name that is no text on the host survives the way to text and
/// back.
class HostPath {
 public:
  HostPath() = default;
  explicit HostPath(std::u16string_view text);
  /// The path that a standard library's function gave.
  [[nodiscard]] static HostPath FromNative(std::filesystem::path native);

  /// For functions of the standard library.
  [[nodiscard]] const std::filesystem::path& Native() const { return native_; }
  [[nodiscard]] std::u16string Text() const;

 private:
  std::filesystem::path native_;
};

/// The folder part of `path`, without its last separator unless it is the root; empty if there is
/// none. Text work only: nothing is looked up, and separators at the end do not count.
[[nodiscard]] std::u16string ParentFolder(std::u16string_view path);
/// What follows the last separator of `path`.
[[nodiscard]] std::u16string_view FileName(std::u16string_view path);
/// `path` itself if it begins with a root, else `path` taken from `folder`.
[[nodiscard]] std::u16string PathFrom(std::u16string_view folder, std::u16string_view path);
/// What `path` has before FileName, with the separator; empty if there is none.
[[nodiscard]] std::u16string_view FolderPart(std::u16string_view path);
/// `folder` with exactly one separator at its end.
[[nodiscard]] std::u16string WithSeparator(std::u16string_view folder);
/// `path` from the root of the file system on; nothing is looked up but the current folder.
[[nodiscard]] std::u16string AbsolutePath(std::u16string_view path);
/// `path` without `.`, `..` and double separators. Text work only.
[[nodiscard]] std::u16string NormalPath(std::u16string_view path);
/// The path in `text` as this host's file manager copies it: on some hosts it comes in quotes.
[[nodiscard]] std::u16string_view CopiedPath(std::u16string_view text);
/// The path that `text`, the part of a file's address after its machine, means on this host: one
/// with drives has no separator before them.
[[nodiscard]] std::u16string AddressedPath(std::u16string_view text);
/// This process's current folder; empty if it is gone.
[[nodiscard]] std::u16string CurrentFolder();

}  // namespace lexmill::platform
