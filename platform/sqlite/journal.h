// SPDX-License-Identifier: MIT
// platform/sqlite: the database shell. Old contents of pages, kept to take changes back.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "platform/host_file.h"
#include "platform/sqlite/page.h"

namespace lexmill::platform::sqlite {

/// A file of page images in the form of a rollback journal of version 3, so that any shell of this
/// format can play it back. Written in runs; Flush hands everything to the host.
class Journal {
 public:
  /// @param file       empty, open for reading and writing
  /// @param pageCount  the database's pages to go back to
  Journal(HostFile file, PageNumber pageCount);

  /// Adds the old content of a page. @throws DatabaseError kFull
  void Append(PageNumber page, const char* bytes);
  void Flush();
  [[nodiscard]] bool IsFlushed() const { return pending_.empty(); }

  /// Flushes and goes through all images in the order in which they were added.
  void Replay(const std::function<void(PageNumber page, const char* bytes)>& restore);

 private:
  void Write(std::string_view bytes);

  HostFile file_;
  std::int64_t size_ = 0;
  std::string pending_;
};

/// What a journal that was found beside a database is good for.
enum class JournalState { Nothing, Valid, Foreign };

/// Plays the journal of a dead process back: cuts the database to its old size and restores the old
/// pages. Never touches the database if the journal is Foreign or holds Nothing.
/// @throws DatabaseError kInputOutput; the journal is then still needed
JournalState PlayBack(const HostFile& journal, HostFile& database);

}  // namespace lexmill::platform::sqlite
