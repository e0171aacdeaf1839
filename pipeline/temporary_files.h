// SPDX-License-Identifier: MIT
// pipeline: performs one run, one class for each pair of formats.
// The temporary files of a run: their names, and their removal at its end.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/name_reservation.h"

namespace lexmill {

/// The temporary files of a reference that is asked after the first one. It has a database of its
/// own, so that its rows come after all those of the references before it.
struct MoreReferenceFiles {
  std::u16string path;         ///< of the reference
  bool isDatabase = false;     ///< it is a purified one
  std::u16string sDbFile;      ///< work database
  std::u16string sRefSqlFile;  ///< reference script; empty for a purified database
  std::u16string sReadyFile;   ///< ready dictionary
};

/// The temporary files of a run that ends in a glossary. Names are bare, since the batch runs in
/// the work folder; only the batch script is a full path.
struct GlossaryRunFiles {
  std::u16string sDbFile;                               ///< work database
  std::u16string sRefSqlFile;                           ///< reference script
  std::u16string sToDoSqlFile;                          ///< untranslated script
  std::u16string sReadyFile;                            ///< ready dictionary
  std::u16string sBatFile;                              ///< batch script, full path
  std::u16string sSavedDb;                              ///< to be saved by it; no temporary file
  std::vector<MoreReferenceFiles> more;                 ///< of the references after the first
  std::vector<platform::NameReservation> reservations;  ///< one for each name
};

/// The temporary files of a run that ends in a text.
struct TextRunFiles {
  std::u16string sDbFile;                               ///< work database
  std::u16string sRefSqlFile;                           ///< reference script
  std::u16string sEntrySqlFile;                         ///< entries script
  std::u16string sToDoSqlFile;                          ///< untranslated script
  std::u16string sUpdateSqlFile;                        ///< update script
  std::u16string sReadyFile;                            ///< ready dictionary
  std::u16string sLineFile;                             ///< line listing
  std::u16string sBatFile;                              ///< first batch script, full path
  std::u16string sBatFile2;                             ///< second batch script, full path
  std::u16string sSavedDb;                              ///< to be saved by the first one
  std::vector<MoreReferenceFiles> more;                 ///< of the references after the first
  std::vector<platform::NameReservation> reservations;  ///< one for each name
};

/// The temporary files of a look into a purified database, named as those of a run.
struct ListingFiles {
  std::u16string sDbFile;                               ///< copy of the database
  std::u16string sListFile;                             ///< its pairs
  std::u16string sBatFile;                              ///< batch script, full path
  std::vector<platform::NameReservation> reservations;  ///< one for each name
};

using Reservations = std::vector<platform::NameReservation>;

/// Draws a bare name that is kept until its reservation, which is added to `reservations`, goes.
[[nodiscard]] std::u16string DrawName(const std::u16string& extension, Reservations& reservations);

/// Draws every name anew, in the order of the members. No file of these names is created, and none
/// is there: a name that another run in this folder keeps, or that a killed run has left a file
/// under, is drawn again.
void DrawNames(GlossaryRunFiles& files);
void DrawNames(TextRunFiles& files);
void DrawNames(ListingFiles& files);

/// The full path of a bare name: `name` in the work folder.
[[nodiscard]] std::u16string InWorkFolder(std::u16string_view name);

/// Deletes every file of a run, wherever that has ended; what isn't there is passed over.
void DeleteAllFiles(const GlossaryRunFiles& files);
void DeleteAllFiles(const TextRunFiles& files);
void DeleteAllFiles(const ListingFiles& files);

/// Deletes each file, without force. A failure is dropped and the next one is deleted all the same.
void DeleteFiles(std::initializer_list<std::u16string> paths);

}  // namespace lexmill
