// SPDX-License-Identifier: MIT
#include "pipeline/temporary_files.h"

#include <utility>

#include "foundation/entry_point.h"
#include "platform/files/file_system.h"
#include "run/shared/file_extension.h"
#include "run/shared/run_state.h"

namespace lexmill {
namespace {

// There are a million names. Where so many draws find none, the folder is not ours to judge.
constexpr int kMostDraws = 1000;

// A shell that was ended leaves the journal of its transaction.
void DeleteDatabase(const std::u16string& name) {
  DeleteFiles({InWorkFolder(name), InWorkFolder(name) + u"-journal"});
}

// What a batch that was ended had not finished lies beside its place; the next to write there
// removes it.
void DeleteListing(const std::u16string& name) {
  IgnoreFailures(
      [&] { platform::FileSystemObject().CreateTextFile(InWorkFolder(name), true).Discard(); });
  DeleteFiles({InWorkFolder(name)});
}

void DrawNames(std::vector<MoreReferenceFiles>& more, Reservations& reservations) {
  more.clear();
  for (const Reference& reference : TheRun().moreReferences) {
    MoreReferenceFiles files;
    files.path = reference.path;
    files.isDatabase = reference.isDatabase;
    files.sDbFile = DrawName(u".db", reservations);
    files.sRefSqlFile = files.isDatabase ? u"" : DrawName(u".sql", reservations);
    files.sReadyFile = DrawName(u".txt", reservations);
    more.push_back(std::move(files));
  }
}

void DeleteAllFiles(const std::vector<MoreReferenceFiles>& more) {
  for (const MoreReferenceFiles& files : more) {
    DeleteFiles({InWorkFolder(files.sRefSqlFile)});
    DeleteListing(files.sReadyFile);
    DeleteDatabase(files.sDbFile);
  }
}

void Restart(Reservations& reservations) {
  reservations.clear();
  platform::RemoveStaleReservations(WorkFolder());
}

}  // namespace

std::u16string DrawName(const std::u16string& extension, Reservations& reservations) {
  const platform::FileSystemObject files;
  std::u16string name;
  for (int i = 0; i < kMostDraws; ++i) {
    name = modMain::ChangeFileExtension(files.GetTempName(), extension);
    if (auto taken = platform::NameReservation::Take(InWorkFolder(name))) {
      reservations.push_back(std::move(*taken));
      break;
    }
  }
  return name;
}

void DrawNames(GlossaryRunFiles& files) {
  Restart(files.reservations);
  files.sDbFile = DrawName(u".db", files.reservations);
  files.sRefSqlFile = DrawName(u".sql", files.reservations);
  files.sToDoSqlFile = DrawName(u".sql", files.reservations);
  files.sReadyFile = DrawName(u".txt", files.reservations);
  files.sBatFile = InWorkFolder(DrawName(u".bat", files.reservations));
  DrawNames(files.more, files.reservations);
}

void DrawNames(TextRunFiles& files) {
  Restart(files.reservations);
  files.sDbFile = DrawName(u".db", files.reservations);
  files.sRefSqlFile = DrawName(u".sql", files.reservations);
  files.sEntrySqlFile = DrawName(u".sql", files.reservations);
  files.sToDoSqlFile = DrawName(u".sql", files.reservations);
  files.sUpdateSqlFile = DrawName(u".sql", files.reservations);
  files.sReadyFile = DrawName(u".txt", files.reservations);
  files.sLineFile = DrawName(u".txt", files.reservations);
  files.sBatFile = InWorkFolder(DrawName(u".bat", files.reservations));
  files.sBatFile2 = InWorkFolder(DrawName(u".bat", files.reservations));
  DrawNames(files.more, files.reservations);
}

void DrawNames(ListingFiles& files) {
  Restart(files.reservations);
  files.sDbFile = DrawName(u".db", files.reservations);
  files.sListFile = DrawName(u".txt", files.reservations);
  files.sBatFile = InWorkFolder(DrawName(u".bat", files.reservations));
}

std::u16string InWorkFolder(std::u16string_view name) {
  return WorkFolder() + std::u16string(name);
}

void DeleteAllFiles(const GlossaryRunFiles& files) {
  DeleteFiles({InWorkFolder(files.sRefSqlFile), InWorkFolder(files.sToDoSqlFile), files.sBatFile});
  DeleteListing(files.sReadyFile);
  DeleteDatabase(files.sDbFile);
  DeleteAllFiles(files.more);
}

void DeleteAllFiles(const TextRunFiles& files) {
  DeleteFiles({InWorkFolder(files.sRefSqlFile), InWorkFolder(files.sEntrySqlFile),
               InWorkFolder(files.sToDoSqlFile), InWorkFolder(files.sUpdateSqlFile), files.sBatFile,
               files.sBatFile2});
  DeleteListing(files.sReadyFile);
  DeleteListing(files.sLineFile);
  DeleteDatabase(files.sDbFile);
  DeleteAllFiles(files.more);
}

void DeleteAllFiles(const ListingFiles& files) {
  DeleteFiles({files.sBatFile});
  DeleteListing(files.sListFile);
  DeleteDatabase(files.sDbFile);
}

void DeleteFiles(std::initializer_list<std::u16string> paths) {
  const platform::FileSystemObject files;
  for (const auto& path : paths) {
    IgnoreFailures([&] { files.DeleteFile(path); });
  }
}

}  // namespace lexmill
