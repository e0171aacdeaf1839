// SPDX-License-Identifier: MIT
// platform/sqlite/file: old contents of pages, kept to take changes back.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/host/host_file.h"
#include "platform/sqlite/file/page.h"

namespace lexmill::platform::sqlite {

/// Takes a page's number and its old content.
using RestorePage = std::function<void(PageNumber page, const char* bytes)>;

/// Page images in the form of a rollback journal of version 3, so that any shell of this format can
/// play them back. Collected in memory; Flush hands them to the host.
class Journal {
 public:
  /// A journal in `file`, empty and open for reading and writing.
  /// @param pageCount  the database's pages to go back to
  Journal(HostFile file, PageNumber pageCount);
  /// A journal for this process alone, in a nameless file beside `database` once it is large.
  Journal(std::string database, PageNumber pageCount);

  /// Adds the old content of a page. @throws DatabaseError
  void Append(PageNumber page, const char* bytes);
  void Flush();
  [[nodiscard]] PageNumber PageCount() const { return pageCount_; }
  [[nodiscard]] const HostFile& File() const { return file_; }
  /// Closes the file, as it has to be before it can go; what was collected is dropped.
  void Close() { file_.Close(); }
  /// Opens the file again that Close has closed, to play it back: it lies at `path`.
  void OpenAgain(const HostPath& path);
  /// Flushes and hands over all images in the order in which they came.
  void Replay(const RestorePage& restore);

 private:
  void PutHead();

  HostFile file_;
  std::string database_;
  PageNumber pageCount_;
  std::uint32_t seed_;
  std::int64_t size_ = 0;
  std::string pending_;
};

/// What the file found as a database's journal is.
enum class JournalKind {
  Journal,
  Nothing,  ///< one that undoes nothing: without a whole head, or with a head only
  Foreign,
};
[[nodiscard]] JournalKind KindOf(const HostFile& journal, const HostFile& database);

/// Undoes what the writer of `journal` did to `database`: cuts it to its old size and restores its
/// old pages. The journal may be of any version; one cut short is played as far as it goes.
/// @throws DatabaseError kInputOutput; the journal is then still needed
void PlayBack(const HostFile& journal, HostFile& database, ByteOrder order);

}  // namespace lexmill::platform::sqlite
