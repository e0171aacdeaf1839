// SPDX-License-Identifier: MIT
// pipeline: performs one run, one class for each pair of formats.
// Whether the purified database that a run was to save has come about.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace lexmill {

/// Made before the batch that saves the database and asked after it. The batch deletes an older
/// database of that name first and puts the new one there in one step, so that it is there and
/// changed, or the copy has failed.
class SavedDatabase {
 public:
  /// @param path  as the batch has it, a relative one from the folder that the batch runs in; empty
  ///   if none is saved
  explicit SavedDatabase(const std::u16string& path);

  /// Adds a notice of failure to the run's if the database has not been saved, but not to a run
  /// that has been abandoned.
  void NoteIfMissing() const;

 private:
  std::u16string path_;
  std::optional<std::int64_t> timeBefore_;  ///< of an older database
};

}  // namespace lexmill
