// SPDX-License-Identifier: MIT
// platform/host: a new content that takes a file's place in one step.
#pragma once

#include <string>
#include <string_view>

#include "platform/host/host_file.h"

namespace lexmill::platform {

/// A file that takes the place of another in one step, once it is complete: written beside the
/// target as `.NAME.lexmill-PROCESS` and renamed over it by Commit, with the permissions of an
/// older file. Dropped if it is not committed. Older ones of the same name, left by processes that
/// are gone, are removed first. A symbolic link as target is followed; a target that is no regular
/// file, or a writable one in a folder that isn't, is written in place.
class ReplacementFile {
 public:
  /// Opens the file to write for `target`, an absolute or relative path.
  /// @return a failure if neither way can be opened; the target's own condition is tested: IsFolder
  ///   for a folder, Denied for a file without write permission, NotFound for a missing folder
  [[nodiscard]] static HostResult<ReplacementFile> Create(std::u16string_view target);

  ReplacementFile(ReplacementFile&& other) noexcept;
  ReplacementFile& operator=(ReplacementFile&& other) noexcept;
  ReplacementFile(const ReplacementFile&) = delete;
  ReplacementFile& operator=(const ReplacementFile&) = delete;
  ~ReplacementFile();

  [[nodiscard]] HostFile& File() { return file_; }

  /// Puts the file in the target's place. Flushes it to the disk first if `flush` and the target
  /// existed. After a failure the target is as it was.
  [[nodiscard]] HostOutcome Commit(bool flush);

 private:
  ReplacementFile(HostFile file, std::u16string aside, std::u16string target, bool replaces);
  [[nodiscard]] static HostResult<ReplacementFile> CreateInPlace(const std::u16string& target);
  [[nodiscard]] static HostResult<ReplacementFile> CreateAside(const std::u16string& target,
                                                               bool replaces);
  void Drop();

  HostFile file_;
  std::u16string aside_;  ///< empty when the target is written in place, and after Commit
  std::u16string target_;
  bool replaces_ = false;
};

}  // namespace lexmill::platform
