// SPDX-License-Identifier: MIT
// platform/files: a file that is another one but for some stretches.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/files/file_range.h"
#include "platform/host/host_file.h"
#include "platform/host/replacement_file.h"
#include "platform/text/ansi_text.h"

namespace lexmill::platform {

/// Writes a file that has every byte of an original but for the stretches that are replaced. It
/// takes the place of an older one of its name, which may be the original, in one step when it is
/// closed; without Close nothing is left of it.
class SplicedFile {
 public:
  /// @param page  how replacements are encoded; kept by reference
  /// @throws Failure as OpenToRead for the original, as OpenToReplace for the target;
  ///   PermissionDenied if the two are one file and its folder takes no new file
  SplicedFile(std::u16string_view original, std::u16string_view target, const CodePage& page);

  /// Puts `text` in the place of `range`, which lies after all ranges replaced before.
  /// @return false if the page lacks a character of `text`; nothing is replaced then
  /// @throws Failure DiskFull or DeviceError if the host can't read or write
  [[nodiscard]] bool Replace(FileRange range, std::u16string_view text);

  /// Completes the file and puts it in its place. To be called once.
  /// @throws Failure as Replace, or PermissionDenied if the file can't take its place
  void Close();

 private:
  void CopyUpTo(std::int64_t end);
  void ReadBlock();
  void Put(std::string_view bytes);
  void Flush();

  HostFile original_;
  std::int64_t size_;      ///< of the original
  std::int64_t done_ = 0;  ///< bytes of the original that have been copied or replaced
  std::u16string targetPath_;
  ReplacementFile target_;
  const CodePage& page_;
  std::string block_;            ///< of the original
  std::int64_t blockStart_ = 0;  ///< where it lies there
  std::string buffer_;           ///< still to be written
  std::string replacement_;      ///< of the last call
};

}  // namespace lexmill::platform
