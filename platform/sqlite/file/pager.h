// SPDX-License-Identifier: MIT
// platform/sqlite/file: the pages of a database file, changed in transactions.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/host/host_file.h"
#include "platform/sqlite/file/journal.h"
#include "platform/sqlite/file/page.h"
#include "platform/sqlite/file/page_cache.h"
#include "platform/sqlite/file/page_io.h"

namespace lexmill::platform::sqlite {

/// A page held for writing. `bytes` is valid as long as `hold`.
struct PageEdit {
  PageRef hold;
  char* bytes = nullptr;
};

/// Reads and changes pages. A change needs a transaction; within one, a mark can be set to go back
/// to. Knows nothing of what pages hold, but for the check of tree pages.
class Pager {
 public:
  /// @param file  the database, open; for writing if a transaction is to be begun
  /// @param path  its path, from which that of the journal is made
  Pager(HostFile file, std::string path) : path_(std::move(path)), io_(std::move(file)) {}

  [[nodiscard]] HostFile& File() { return io_.File(); }
  [[nodiscard]] const std::string& Path() const { return path_; }
  [[nodiscard]] HostPath JournalPath() const;
  [[nodiscard]] PageNumber Count() const { return count_; }
  [[nodiscard]] ByteOrder Order() const { return order_; }
  void Order(ByteOrder order) { order_ = order; }

  /// Forgets all pages and measures the file again, since others may have written to it.
  void Refresh();

  /// @throws DatabaseError kMalformed if there is no such page
  [[nodiscard]] PageRef Read(PageNumber page);
  /// The same for a tree page, which is checked when it comes in.
  [[nodiscard]] PageRef ReadTree(PageNumber page);
  /// Opens an existing page for changes.
  [[nodiscard]] PageEdit Edit(PageNumber page);
  /// Replaces a page as a whole; straight to the file where nothing has to be saved before.
  void Put(PageNumber page, const char* bytes);
  /// Adds a page at the end of the file, of undefined content.
  [[nodiscard]] PageNumber Extend();

  /// Begins a transaction, with a journal beside the database.
  /// @throws DatabaseError kCannotOpen if it can't be created
  void Begin();
  /// Writes all changes out and removes the journal. On failure the transaction is still open.
  void Commit();
  /// Restores the file as it was at Begin, byte for byte.
  void Rollback();
  [[nodiscard]] bool IsWriting() const { return journal_.has_value(); }

  /// Sets the mark, in place of an earlier one.
  void Mark();
  /// Undoes all changes since the mark and removes it.
  void BackToMark();
  /// Removes the mark and keeps the changes.
  void Unmark() { mark_.reset(); }

 private:
  /// Saves each page once, before its first change.
  class Saved {
   public:
    explicit Saved(Journal images)
        : images_(std::move(images)), isSaved_(images_.PageCount() + 1) {}

    [[nodiscard]] bool Needs(PageNumber page) const {
      return page < isSaved_.size() && !isSaved_[page];
    }
    void Save(PageNumber page, const char* bytes);
    [[nodiscard]] Journal& Images() { return images_; }

   private:
    Journal images_;
    std::vector<bool> isSaved_;
  };

  void CheckNumber(PageNumber page) const;
  [[nodiscard]] Frame& Fetch(PageNumber page);
  [[nodiscard]] Frame& Vacate();
  void Save(PageNumber page, const char* bytes);
  void PrepareToWrite();
  void WriteOut();
  void EndTransaction();

  std::string path_;
  PageIo io_;
  PageCache cache_;
  PageNumber count_ = 0;
  ByteOrder order_ = ByteOrder::Little;
  std::string tail_;  ///< bytes of the file after its last full page
  std::optional<Saved> journal_;
  std::optional<Saved> mark_;
  bool hasWritten_ = false;  ///< the file may have been touched in this transaction
};

}  // namespace lexmill::platform::sqlite
