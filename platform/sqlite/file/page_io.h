// SPDX-License-Identifier: MIT
// platform/sqlite/file: pages to and from the file, neighbours in one system call.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include "platform/host/host_file.h"
#include "platform/sqlite/file/page.h"

namespace lexmill::platform::sqlite {

/// The size of a file in bytes. @throws DatabaseError kInputOutput
[[nodiscard]] std::int64_t SizeOf(const HostFile& file);

/// Reads ahead when pages are read one after another, and collects neighbours that are written so.
class PageIo {
 public:
  explicit PageIo(HostFile file) : file_(std::move(file)) {}

  [[nodiscard]] HostFile& File() { return file_; }

  /// Copies a page to `bytes`; zeros for what the file doesn't have yet.
  /// @throws DatabaseError kInputOutput
  void Read(PageNumber page, char* bytes);
  /// Takes a page to be written at the latest by Flush. @throws DatabaseError kFull
  void Write(PageNumber page, const char* bytes);
  void Flush();
  /// Forgets what has been read ahead, and pages to be written.
  void Forget();

 private:
  static constexpr std::size_t kRunPages = 256;
  static constexpr std::size_t kAheadPages = 64;

  [[nodiscard]] bool TakeFrom(const std::string& pages, PageNumber first, PageNumber page,
                              char* bytes) const;
  void ReadAhead(PageNumber page);

  HostFile file_;
  std::string run_;  ///< pages to be written, from runFirst_ on
  PageNumber runFirst_ = 0;
  std::string ahead_;  ///< pages read, from aheadFirst_ on
  PageNumber aheadFirst_ = 0;
  PageNumber lastMissed_ = 0;
};

}  // namespace lexmill::platform::sqlite
