// SPDX-License-Identifier: MIT
// pipeline: performs one run, one class for each pair of formats.
// The batch scripts of a run: the only file that spells a batch line.
#pragma once

#include <string>
#include <string_view>

#include "pipeline/temporary_files.h"

namespace lexmill {

/// Draws the names of a run and writes its batch script: load R (or copy a purified database), save
/// the purified database if the options want it, load S, join into the ready dictionary, clean up.
/// Further references follow, each with a database and a ready dictionary of its own. Reads the
/// options and the run's state. Shows its own failures in a message box and returns normally; names
/// drawn and lines written so far stay.
void BuildBatScript(GlossaryRunFiles& files);

/// The same for a run that ends in a text: a first script that also loads O and leaves the
/// database, and a second one that runs the update script and lists O.
void BuildBatScript(TextRunFiles& files);

/// Writes the script that lists the pairs of a purified database, TAB-separated. It works on a
/// copy, so that the user's file stays as it is. @throws as TextWriter and QuotedPath
void BuildListingScript(const std::u16string& purified, const ListingFiles& files);

/// Where the purified database is saved: txtSaveRefDB, or, if that is empty, beside the reference
/// under its name with "_", day and hour, and ".db".
/// @throws platform::Failure InvalidCall if a name has to be made up from a path without a point
[[nodiscard]] std::u16string SavedDatabasePath();

/// `path` in the double quotes of a batch line.
/// @throws platform::Failure BadFileName for a path that no batch line can hold: one with a double
///   quote, a line end or a NUL in it
[[nodiscard]] std::u16string QuotedPath(std::u16string_view path);

}  // namespace lexmill
